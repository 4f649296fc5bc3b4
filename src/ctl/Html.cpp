#include "ctl/Html.h"

#include "ctl/Messages.h"

std::u16string htmlText(std::u16string_view text) {
    std::u16string escaped;
    for (const char16_t unit : printable(text)) {
        switch (unit) {
            case u'&':
                escaped += u"&amp;";
                break;
            case u'<':
                escaped += u"&lt;";
                break;
            case u'>':
                escaped += u"&gt;";
                break;
            case u'"':
                escaped += u"&quot;";
                break;
            default:
                escaped += unit;
        }
    }
    return escaped;
}
