// The fault that a list's count differs from its sections.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Faults.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"

class CountCheck {
public:
    // Adds a fault if the text of the count is not a count. `file` and `faults` outlive this object.
    CountCheck(IniReader& file, ListKind kind, Faults& faults);

    // The number of records; 0 if the text is no number from 0 to 32,767.
    int count() const { return count_; }
    // Adds a fault if the record with this 0-based index has no section.
    void checkRecord(int index, std::u16string_view programme);
    // Adds a fault for the sections after the last record; call after all records.
    void checkRest();

private:
    IniReader& file_;
    ListKind kind_;
    Faults& faults_;
    std::u16string key_;
    std::u16string_view text_;
    int count_ = 0;
    RecordSection section_;
};
