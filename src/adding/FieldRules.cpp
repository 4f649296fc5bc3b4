#include "adding/FieldRules.h"

#include <algorithm>

#include "storage/stations/FieldLimits.h"
#include "storage/text/Numbers.h"

namespace {

// Digits, and one point if the frequency is in MHz.
bool charactersFit(ListKind kind, std::u16string_view text) {
    const auto points = std::count(text.begin(), text.end(), u'.');
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    return points <= (kind == ListKind::Fm ? 1 : 0) && points + digits == std::ssize(text);
}

}  // namespace

std::u16string_view fieldError(const FieldRule& rule, std::u16string_view text) {
    const std::u16string_view blank = blankFault(text);
    if (!blank.empty() || !rule.frequencyOf) {
        return blank;
    }
    if (!charactersFit(*rule.frequencyOf, text)) {
        return u"Please input zero to nine";
    }
    return rangeFault(*rule.frequencyOf, leadingNumber(text));
}
