// A broadcast of a published schedule, independent of the format.
#pragma once

#include <string>
#include <vector>

// A set of days of the week: bit 0 is Monday, bit 6 Sunday.
inline constexpr unsigned kEveryDay = 0x7F;
constexpr unsigned dayAfter(unsigned days) { return (days << 1U | days >> 6U) & kEveryDay; }

struct ScheduleEntry {
    std::u16string programme;
    std::u16string frequency;   // kHz, digits
    std::u16string start;       // hhmm UTC, "0000" to "2359"
    std::u16string stop;        // hhmm UTC, "0001" to "2400"; not later than the start if it crosses midnight
    std::u16string target;      // never empty; "-" if the schedule names none
    unsigned days = kEveryDay;  // of the start
    bool isDrm = true;
};

// The result of a reader. Entries that are inactive or out of season are skipped and counted.
struct ScheduleEntries {
    std::vector<ScheduleEntry> entries;
    int skippedLines = 0;    // lines that are no entry of the format
    int outOfSeason = 0;     // or inactive
    bool isSchedule = true;  // false: the file has another format
};
