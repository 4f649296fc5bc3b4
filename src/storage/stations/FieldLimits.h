// What the receiver takes in a field, and the messages about anything else. The edit box and the Add List dialog check
// by these; which characters they take, and how they derive a band, is their own.
#pragma once

#include <string_view>

#include "storage/stations/ListKind.h"

inline constexpr std::u16string_view kInputEmpty = u"Input can't be empty";

// The message about a text that is empty or holds nothing but blanks; empty when it holds more.
std::u16string_view blankFault(std::u16string_view text);

// The message about a frequency that records of the list cannot have; empty for one that they can. kHz, for FM MHz.
// The Favourite list holds records of the other three and has no limits of its own.
std::u16string_view rangeFault(ListKind kind, double frequency);
