// Compares two states of the lists, record by record.
#pragma once

#include <string>
#include <vector>

#include "ctl/Lists.h"

struct FieldChange {
    std::u16string field;  // caption of the column, or "row" for a record that has moved
    std::u16string from;
    std::u16string to;
};

// Rows are 1-based. An added record has old row 0, a removed one new row 0.
struct RecordChange {
    ListKind list;
    int oldRow = 0;
    int newRow = 0;
    std::vector<std::u16string> cells;  // of the record; if it has changed, the old ones
    std::vector<FieldChange> fields;    // for a changed record only
};

// Equal records are paired first, wherever they are; of the rest those with the same programme, then those with the
// same frequency. With `ordered`, moved records count as changed.
std::vector<RecordChange> diffLists(const Lists& before, const Lists& after, bool ordered);

// One line per change, which starts with "+", "-" or "~".
std::string linesOf(const std::vector<RecordChange>& changes, bool colours);
std::string jsonOf(const std::vector<RecordChange>& changes);
