// Functions shared by the readers of schedules.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"

// Removes blanks at both ends.
std::string_view withoutBlanks(std::string_view text);
bool areDigits(std::string_view text, std::size_t count);
// hhmm from 0000 to 2400.
bool isTimeOfDay(std::string_view text);
// The nearest whole kHz as digits; nullopt unless the text is a plain number.
std::optional<std::u16string> wholeKilohertz(std::string_view text);
int numberOf(std::string_view digits);
// Times of day from 0000 to 2400; midnight may be either. The days are those of the entry.
void setSpan(ScheduleEntry& entry, std::string_view start, std::string_view stop);

// Removes the first line from `rest` and returns it without its CR LF, LF or CR.
std::string_view takeLine(std::string_view& rest);

std::u16string fromLatin1(std::string_view bytes);
std::u16string fromWindows1252(std::string_view bytes);
