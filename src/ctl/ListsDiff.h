// What two states of the lists differ in, record by record.
#pragma once

#include <string>
#include <vector>

#include "ctl/Lists.h"

struct FieldChange {
    std::u16string field;  // the caption of its column, or "row" for a record that has moved
    std::u16string from;
    std::u16string to;
};

// Rows are 1-based. A record that was added has no old row, one that was removed no new row: 0.
struct RecordChange {
    ListKind list;
    int oldRow = 0;
    int newRow = 0;
    std::vector<std::u16string> cells;  // of the record, the old ones where it has changed
    std::vector<FieldChange> fields;    // of a changed record
};

// Equal records are matched first, wherever they stand; of the others those with the same programme, then those with
// the same frequency. With `ordered`, records that are not in the order of before count as changed.
std::vector<RecordChange> diffLists(const Lists& before, const Lists& after, bool ordered);

// One line for each change, beginning with "+", "-" or "~".
std::string linesOf(const std::vector<RecordChange>& changes, bool colours);
std::string jsonOf(const std::vector<RecordChange>& changes);
