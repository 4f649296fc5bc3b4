// What the fields of the Add List dialog accept, as data. The in-place editor has rules of its own,
// with other messages and another band rule.
#pragma once

#include <span>
#include <string_view>

inline constexpr std::u16string_view kInputEmpty = u"Input can't be empty";

enum class AllowedCharacters { Any, Digits, DigitsAndOnePoint };

// Both bounds belong to the range; kHz for DRM and AM, MHz for FM.
struct FrequencyRange {
    double low;
    double high;
};

struct FieldRule {
    std::u16string_view prefix;  // in front of every message about the field
    AllowedCharacters characters = AllowedCharacters::Any;
    std::span<const FrequencyRange> ranges = {};  // none: the text is not a number
    std::u16string_view outOfRange = {};
};

extern const FieldRule kProgrammeRule;
extern const FieldRule kTargetRule;
extern const FieldRule kDrmFrequencyRule;
extern const FieldRule kAmFrequencyRule;
extern const FieldRule kFmFrequencyRule;

// The message of the first check that fails, without the prefix; empty when the text is valid.
std::u16string_view fieldError(const FieldRule& rule, std::u16string_view text);

// "LW", "MW", "SW", or empty outside the bands. 1,710 kHz is short wave here and 30,000 kHz has no band:
// neither the loader nor the in-place editor draws these two lines the same way.
std::u16string_view bandOfNewRecord(double kHz);
