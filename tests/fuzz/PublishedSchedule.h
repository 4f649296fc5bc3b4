// What every reader of a published schedule promises.
#pragma once

#include <algorithm>
#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"
#include "fuzz/Fuzz.h"

inline bool isScheduleTime(std::u16string_view text, std::u16string_view first, std::u16string_view last) {
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    return text.size() == 4 && std::all_of(text.begin(), text.end(), isDigit) && text >= first && text <= last &&
           text[2] <= u'5';
}

inline void checkEntries(const ScheduleEntries& read, std::size_t lineCount) {
    promise(read.isSchedule || read.entries.empty(), "what is no schedule has no entries");
    promise(read.entries.size() + static_cast<std::size_t>(read.skippedLines + read.outOfSeason) <= lineCount,
            "a line is one entry at most");
    for (const ScheduleEntry& entry : read.entries) {
        promise(!entry.programme.empty() && !entry.target.empty(), "an entry has a programme and a target");
        promise(isScheduleTime(entry.start, u"0000", u"2359"), "an entry has a start");
        promise(isScheduleTime(entry.stop, u"0001", u"2400"), "an entry has a stop");
        promise(!entry.frequency.empty() && entry.frequency.find_first_not_of(u"0123456789") == std::u16string::npos,
                "an entry has a frequency");
        promise(entry.days > 0 && entry.days <= kEveryDay, "an entry has a day");
    }
}

inline std::size_t lineCountOf(std::string_view bytes) {
    return 1 + static_cast<std::size_t>(
                   std::count_if(bytes.begin(), bytes.end(), [](char byte) { return byte == '\r' || byte == '\n'; }));
}
