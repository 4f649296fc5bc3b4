#include "storage/stations/FieldLimits.h"

namespace {

bool within(double value, double lowest, double highest) { return value >= lowest && value <= highest; }

}  // namespace

std::u16string_view blankFault(std::u16string_view text) {
    if (text.empty()) {
        return kInputEmpty;
    }
    return text.find_first_not_of(u' ') == text.npos ? u"Input can't be all space" : u"";
}

std::u16string_view rangeFault(ListKind kind, double frequency) {
    switch (kind) {
        case ListKind::Drm:
            return within(frequency, 150, 30000) ? u"" : u"Out of range: (150--30000) kHz";
        case ListKind::Am:
            return within(frequency, 150, 288) || within(frequency, 522, 30000)
                       ? u""
                       : u"Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!";
        case ListKind::Fm:
            return within(frequency, 87.0, 108.0) ? u"" : u"Out of range: (87.0-108.0) MHz!";
        case ListKind::Favourite:
            break;
    }
    return {};
}
