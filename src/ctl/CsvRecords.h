// The records of a CSV file, each checked by the rules for adding a record.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/CsvReader.h"
#include "ctl/Record.h"
#include "storage/stations/ListKind.h"

struct CsvFault {
    int line = 0;
    std::u16string column;  // empty: the fault is in the row or the file
    std::u16string reason;
};

struct CsvRecord {
    ListKind list = ListKind::Drm;
    Record record;
};

struct CsvRecords {
    std::vector<CsvRecord> records;
    std::vector<CsvFault> faults;                // if there are any, none of the records may be used
    std::vector<std::u16string> unknownColumns;  // ignored
    std::deque<CsvRow> rows;                     // the records are views into them
};

// `only`: skips records of other lists; without a list column all records belong to this list.
CsvRecords readCsv(std::u16string_view text, std::optional<ListKind> only);
