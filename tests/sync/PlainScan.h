// The reference for the schedule scanner: character by character, as simple as possible.
#pragma once

#include <algorithm>
#include <array>
#include <string>

#include "platform/Grid.h"
#include "sync/ScheduleRecords.h"

inline std::u16string plainValue(std::u16string line, std::size_t index) {
    if (!line.empty() && (line.back() == u'\n' || line.back() == u'\r')) {
        line.pop_back();
    }
    static const std::array<std::u16string, kScheduleFieldCount> kKeys = {
        u"StartStopTimeUTC=", u"", u"Frequency=", u"Target=", u"", u"Programme=", u"", u"", u""};
    const std::u16string& key = kKeys[index];
    return line.compare(0, key.size(), key) == 0 ? line.substr(key.size()) : u"";
}

// Appends the records to the grid; returns their number.
inline int plainScan(Grid& grid, const std::u16string& text) {
    std::array<std::u16string, kScheduleFieldCount> fields;
    std::u16string line;
    std::size_t index = 0;
    int added = 0;
    for (const char16_t c : text) {
        if (c != u'\n') {
            line += c;
            continue;
        }
        if (line.empty()) {
            continue;
        }
        fields[index] = plainValue(line, index);
        line.clear();
        index = fields[index].empty() ? 0 : index + 1;
        if (index < fields.size()) {
            continue;
        }
        index = 0;
        ScheduleFields views;
        std::copy(fields.begin(), fields.end(), views.begin());
        added += AddScheduleRecord(grid, views, 0) ? 1 : 0;
        if (added > 256) {
            break;
        }
    }
    return added;
}
