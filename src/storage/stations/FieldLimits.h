// The values that the receiver accepts in a field, and the messages about others. Shared by the edit box and the Add
// List dialog, which have separate rules for characters and bands.
#pragma once

#include <string_view>

#include "storage/stations/ListKind.h"

inline constexpr std::u16string_view kInputEmpty = u"Input can't be empty";

// The message for a text that is empty or blank; empty for any other.
std::u16string_view blankFault(std::u16string_view text);

// The message for a frequency outside the range of the list, in kHz or, for FM, MHz; empty for one within. The
// Favourite list has no range: its records belong to the other three.
std::u16string_view rangeFault(ListKind kind, double frequency);
