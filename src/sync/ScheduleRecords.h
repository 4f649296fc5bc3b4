// The records of a downloaded broadcast schedule: nine lines each, of which four are used.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Grid.h"

inline constexpr std::size_t kScheduleFieldCount = 9;

// The fields that make a row of the DRM list; 0-based positions within a record.
namespace ScheduleField {
inline constexpr std::size_t Time = 0;       // first four characters hhmm, last four hhmm, UTC
inline constexpr std::size_t Frequency = 2;  // kHz
inline constexpr std::size_t Target = 3;
inline constexpr std::size_t Programme = 5;
}  // namespace ScheduleField

// Views into the text of the schedule.
using ScheduleFields = std::array<std::u16string_view, kScheduleFieldCount>;

// "hh:mm-hh:mm" from a text whose first and last four characters are hhmm; nullopt when a time is wrong or the span
// does not end after its start on the same day.
std::optional<std::u16string> timeSpan(std::u16string_view time);

// The value of a line at a position (0-based) of a record, a view into the line; empty when the line does not
// fit there. One CR or LF at the end of the line is not part of it.
std::u16string_view ParseScheduleLine(std::u16string_view line, std::size_t fieldIndex);

// Appends a valid record to the DRM grid. False, and the grid unchanged, when the record is not valid or equals
// one of the grid's first existingRowCount rows in frequency, time and target.
bool AddScheduleRecord(Grid& drmLV, const ScheduleFields& fields, int existingRowCount);

// Appends the valid records of a schedule and returns their number. Ends after the 257th; text behind the last
// LF is not a line.
int AddScheduleRecords(Grid& drmLV, std::u16string_view schedule, int existingRowCount);
