// Any text is read to its end as rows, and cells that are written in quotes are read back as they were.
#include <vector>

#include "ctl/CsvReader.h"
#include "ctl/CsvRecords.h"
#include "fuzz/Fuzz.h"
#include "storage/text/Utf8.h"

namespace {

struct Rows {
    std::vector<std::vector<std::u16string>> cells;
    bool hasFault = false;
};

Rows rowsOf(std::u16string_view text) {
    Rows rows;
    CsvReader reader(text);
    CsvRow row;
    int line = 0;
    while (reader.next(row)) {
        promise(row.line > line, "rows follow each other");
        promise(!row.cells.empty(), "a row has a cell");
        line = row.line;
        rows.hasFault = rows.hasFault || !row.fault.empty();
        rows.cells.push_back(row.cells);
    }
    return rows;
}

std::u16string inQuotes(const Rows& rows, char16_t separator) {
    std::u16string text;
    for (const auto& row : rows.cells) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += i == 0 ? std::u16string() : std::u16string(1, separator);
            text += u'"';
            for (const char16_t unit : row[i]) {
                text.append(unit == u'"' ? 2 : 1, unit);
            }
            text += u'"';
        }
        text += u"\r\n";
    }
    return text;
}

void checkRecords(std::u16string_view text) {
    const CsvRecords csv = readCsv(text, std::nullopt);
    promise(csv.records.size() <= csv.rows.size(), "a row holds one record at most");
    promise(!csv.faults.empty() || csv.records.size() == csv.rows.size(), "without a fault each row is a record");
    int line = 0;
    for (const CsvFault& fault : csv.faults) {
        promise(fault.line >= line && fault.line > 0 && !fault.reason.empty(), "a fault has a line and a reason");
        line = fault.line;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = fromUtf8(bytesOf(data, size));
    const Rows rows = rowsOf(text);
    if (!rows.cells.empty()) {
        // Only a first line with a separator tells which one it is.
        const bool isOneCell = rows.cells.front().size() == 1;
        for (const char16_t separator : {u',', u';', u'\t'}) {
            if (!isOneCell || separator == u',') {
                const Rows again = rowsOf(inQuotes(rows, separator));
                promise(!again.hasFault && again.cells == rows.cells, "cells in quotes are read back");
            }
        }
    }
    checkRecords(text);
    return 0;
}
