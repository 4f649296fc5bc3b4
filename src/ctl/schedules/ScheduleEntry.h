// A broadcast of a published schedule, whatever the format that it comes from.
#pragma once

#include <string>
#include <vector>

struct ScheduleEntry {
    std::u16string programme;
    std::u16string frequency;  // kHz, digits
    std::u16string start;      // hhmm UTC, "0000" to "2359"
    std::u16string stop;       // hhmm UTC, "0001" to "2400"; before the start: the broadcast crosses midnight
    std::u16string target;     // never empty; "-" where the schedule names none
    unsigned days = 0x7F;      // bit 0 is Monday, bit 6 Sunday
    bool isDrm = true;
};

// What a reader makes of a file. Entries that are inactive or out of season on the date given are left out and counted.
struct ScheduleEntries {
    std::vector<ScheduleEntry> entries;
    int skippedLines = 0;    // that are no entry of the format
    int outOfSeason = 0;     // or inactive
    bool isSchedule = true;  // false: the file is not in the format at all
};
