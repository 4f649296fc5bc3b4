// The rules for the fields of the Add List dialog, as data. The in-place editor has other rules and messages.
#pragma once

#include <optional>
#include <string_view>

#include "storage/stations/ListKind.h"

struct FieldRule {
    std::u16string_view prefix;           // precedes every message about the field
    std::optional<ListKind> frequencyOf;  // the list whose frequency range applies; nullopt: any text
};

inline constexpr FieldRule kProgrammeRule{u"Programme: ", std::nullopt};
inline constexpr FieldRule kTargetRule{u"Target: ", std::nullopt};
inline constexpr FieldRule kDrmFrequencyRule{u"Frequency: ", ListKind::Drm};
inline constexpr FieldRule kAmFrequencyRule{u"Frequency: ", ListKind::Am};
inline constexpr FieldRule kFmFrequencyRule{u"Frequency: ", ListKind::Fm};

// The message of the first check that fails, without the prefix; empty if the text is valid.
std::u16string_view fieldError(const FieldRule& rule, std::u16string_view text);
