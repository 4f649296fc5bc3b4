#include "ctl/CsvReader.h"

#include <algorithm>

namespace {

constexpr char16_t kQuote = u'"';

char16_t separatorOf(std::u16string_view text) {
    char16_t best = u',';
    std::ptrdiff_t most = 0;
    for (const char16_t separator : {u',', u';', u'\t'}) {
        bool quoted = false;
        std::ptrdiff_t count = 0;
        for (const char16_t unit : text) {
            if (!quoted && (unit == u'\r' || unit == u'\n')) {
                break;
            }
            quoted = quoted != (unit == kQuote);
            count += !quoted && unit == separator ? 1 : 0;
        }
        if (count > most) {
            most = count;
            best = separator;
        }
    }
    return best;
}

}  // namespace

CsvReader::CsvReader(std::u16string_view text) : text_(text), separator_(separatorOf(text)) {}

bool CsvReader::next(CsvRow& row) {
    while (!atEnd() && atLineEnd()) {
        skipLineEnd();
    }
    if (atEnd()) {
        return false;
    }
    row.line = line_;
    row.cells.clear();
    row.fault = {};
    readCell(row);
    while (!atLineEnd()) {
        ++position_;  // the separator
        readCell(row);
    }
    skipLineEnd();
    return true;
}

// Reads up to the separator or the end of the line.
void CsvReader::readCell(CsvRow& row) {
    std::u16string& cell = row.cells.emplace_back();
    if (!atEnd() && text_[position_] == kQuote) {
        readQuoted(row, cell);
    }
    const std::size_t start = position_;
    while (!atLineEnd() && text_[position_] != separator_) {
        ++position_;
    }
    if (start == position_) {
        return;
    }
    const std::u16string_view plain = text_.substr(start, position_ - start);
    if (!cell.empty() || (start > 0 && text_[start - 1] == kQuote) || plain.find(kQuote) != plain.npos) {
        row.fault = u"a quote within a cell that is not quoted as a whole";
    }
    cell += plain;
}

void CsvReader::readQuoted(CsvRow& row, std::u16string& cell) {
    for (++position_; !atEnd(); ++position_) {
        if (text_[position_] == kQuote) {
            ++position_;
            if (atEnd() || text_[position_] != kQuote) {
                return;
            }
        }
        const bool isPair = text_[position_] == u'\n' && text_[position_ - 1] == u'\r';
        line_ += (text_[position_] == u'\n' || text_[position_] == u'\r') && !isPair ? 1 : 0;
        cell += text_[position_];
    }
    row.fault = u"a quote that is not closed";
}

void CsvReader::skipLineEnd() {
    if (atEnd()) {
        return;
    }
    const bool isPair = text_.substr(position_, 2) == u"\r\n";
    position_ += isPair ? 2 : 1;
    ++line_;
}
