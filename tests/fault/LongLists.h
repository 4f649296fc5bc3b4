// Lists so long that the change that an edit makes follows the snapshot in its file.
#pragma once

#include <algorithm>
#include <string>

#include "fakes/FakeFiles.h"
#include "storage/text/Utf8.h"

namespace LongLists {
inline constexpr int kRecords = 40;

inline std::u16string name() { return std::u16string(254, u'\u4E2D'); }

// Adds FM records to a "List.ini" that has none.
inline void addTo(std::string& bytes) {
    std::string records;
    for (int i = 0; i < kRecords; ++i) {
        records += "[FMSchedule" + std::to_string(i) + "]\r\nFrequency=98000\r\nProgramme=" + toUtf8(name()) +
                   "\r\nUserDef=0\r\n";
    }
    const std::string none = "fmnumber=0";
    bytes.replace(bytes.find(none), none.size(), "fmnumber=" + std::to_string(kRecords));
    bytes.insert(bytes.find("\r\n[kvt update end]"), records);
}

// The names of these records, each followed by ";".
inline std::u16string shown() {
    std::u16string names;
    for (int i = 0; i < kRecords; ++i) {
        names += name() + u';';
    }
    return names;
}

inline bool changeWasAppended(const FakeFiles& disk) {
    return std::any_of(disk.accesses.begin(), disk.accesses.end(),
                       [](const std::string& access) { return access.starts_with("append /app/Recovery/"); });
}
}  // namespace LongLists
