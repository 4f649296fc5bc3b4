// Reads comma-separated values. Cells in quotes may contain separators, doubled quotes and line breaks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct CsvRow {
    int line = 0;  // 1-based line on which the row begins
    std::vector<std::u16string> cells;
    // What is wrong with the quotes of the row; empty if nothing is.
    std::u16string_view fault;
};

class CsvReader {
public:
    // The separator is a comma, a semicolon or a tab: the most frequent one outside quotes in the first line.
    explicit CsvReader(std::u16string_view text);

    // The next row that is not empty; false at the end.
    bool next(CsvRow& row);

private:
    bool atEnd() const { return position_ >= text_.size(); }
    bool atLineEnd() const { return atEnd() || text_[position_] == u'\r' || text_[position_] == u'\n'; }
    void readCell(CsvRow& row);
    void readQuoted(CsvRow& row, std::u16string& cell);
    void skipLineEnd();

    std::u16string_view text_;
    std::size_t position_ = 0;
    int line_ = 1;
    char16_t separator_ = u',';
};
