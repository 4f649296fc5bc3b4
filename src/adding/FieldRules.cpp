#include "adding/FieldRules.h"

#include <algorithm>
#include <array>

#include "storage/Numbers.h"

namespace {

constexpr std::u16string_view kAllSpace = u"Input can't be all space";
constexpr std::u16string_view kNotANumber = u"Please input zero to nine";
constexpr std::u16string_view kFrequencyPrefix = u"Frequency: ";

constexpr std::array<FrequencyRange, 1> kDrmRange = {{{150, 30000}}};
constexpr std::array<FrequencyRange, 2> kAmRanges = {{{150, 288}, {522, 30000}}};
constexpr std::array<FrequencyRange, 1> kFmRange = {{{87.0, 108.0}}};

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool charactersFit(AllowedCharacters allowed, std::u16string_view text) {
    if (allowed == AllowedCharacters::Any) {
        return true;
    }
    const auto points = std::count(text.begin(), text.end(), u'.');
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    const auto most = allowed == AllowedCharacters::DigitsAndOnePoint ? 1 : 0;
    return points <= most && points + digits == std::ssize(text);
}

bool isInRange(std::span<const FrequencyRange> ranges, double value) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [value](const FrequencyRange& range) { return value >= range.low && value <= range.high; });
}

}  // namespace

const FieldRule kProgrammeRule = {.prefix = u"Programme: "};
const FieldRule kTargetRule = {.prefix = u"Target: "};
const FieldRule kDrmFrequencyRule = {kFrequencyPrefix, AllowedCharacters::Digits, kDrmRange,
                                     u"Out of range: (150--30000) kHz"};
const FieldRule kAmFrequencyRule = {kFrequencyPrefix, AllowedCharacters::Digits, kAmRanges,
                                    u"Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!"};
const FieldRule kFmFrequencyRule = {kFrequencyPrefix, AllowedCharacters::DigitsAndOnePoint, kFmRange,
                                    u"Out of range: (87.0-108.0) MHz!"};

std::u16string_view fieldError(const FieldRule& rule, std::u16string_view text) {
    if (text.empty()) {
        return kInputEmpty;
    }
    if (text.find_first_not_of(u' ') == text.npos) {
        return kAllSpace;
    }
    if (!charactersFit(rule.characters, text)) {
        return kNotANumber;
    }
    if (!rule.ranges.empty() && !isInRange(rule.ranges, leadingNumber(text))) {
        return rule.outOfRange;
    }
    return {};
}

std::u16string_view bandOfNewRecord(double kHz) {
    if (kHz >= 150 && kHz <= 288) {
        return u"LW";
    }
    if (kHz >= 522 && kHz < 1710) {
        return u"MW";
    }
    if (kHz >= 1710 && kHz < 30000) {
        return u"SW";
    }
    return {};
}
