// The records of a downloaded broadcast schedule: nine lines each, four of which are used.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Grid.h"

inline constexpr std::size_t kScheduleFieldCount = 9;

// The fields of a row of the DRM list; 0-based positions within a record.
namespace ScheduleField {
inline constexpr std::size_t Time = 0;       // first four characters start, last four stop; hhmm UTC
inline constexpr std::size_t Frequency = 2;  // kHz
inline constexpr std::size_t Target = 3;
inline constexpr std::size_t Programme = 5;
}  // namespace ScheduleField

// Views into the text of the schedule.
using ScheduleFields = std::array<std::u16string_view, kScheduleFieldCount>;

// True for two texts of hhmm, of which the stop may be 2400, with the start before the stop.
bool isTimeSpan(std::u16string_view start, std::u16string_view stop);

// "hh:mm-hh:mm" from a text whose first and last four characters are hhmm; nullopt if a time is invalid or the stop is
// not later than the start.
std::optional<std::u16string> timeSpan(std::u16string_view time);

// The value of a line at a 0-based position of a record, a view into the line; empty if the line does not fit there.
// One CR or LF at the end is dropped.
std::u16string_view ParseScheduleLine(std::u16string_view line, std::size_t fieldIndex);

// Appends a valid record to the DRM grid. False, and the grid unchanged, for an invalid record and for one with the
// frequency, time and target of one of the first existingRowCount rows.
bool AddScheduleRecord(Grid& drmLV, const ScheduleFields& fields, int existingRowCount);

// Appends the valid records of a schedule, at most 257, and returns their number. Text after the last LF is ignored.
int AddScheduleRecords(Grid& drmLV, std::u16string_view schedule, int existingRowCount);
