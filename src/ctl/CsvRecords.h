// The records of a CSV file, each checked by the rules of adding a record.
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
    std::u16string column;  // empty: of the row or the file as a whole
    std::u16string reason;
};

struct CsvRecord {
    ListKind list = ListKind::Drm;
    Record record;
};

struct CsvRecords {
    std::vector<CsvRecord> records;
    std::vector<CsvFault> faults;                // with one, no record counts
    std::vector<std::u16string> unknownColumns;  // left out
    std::deque<CsvRow> rows;                     // which the records refer to
};

// `only`: records of other lists are left out; a file without a list column holds records of this one.
CsvRecords readCsv(std::u16string_view text, std::optional<ListKind> only);
