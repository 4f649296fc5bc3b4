#include "ctl/CsvWriter.h"

#include <algorithm>

#include "ctl/Record.h"
#include "storage/lists/ComposedFile.h"

namespace {

constexpr std::size_t kUsualRecordBytes = 64;

// Readers may take any of these for a separator.
bool isSpecial(char16_t unit) {
    return unit == u'"' || unit == u',' || unit == u';' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

bool needsQuotes(std::u16string_view cell) {
    return cell.starts_with(u' ') || cell.ends_with(u' ') || std::any_of(cell.begin(), cell.end(), isSpecial);
}

void appendCell(std::u16string& text, std::u16string_view cell) {
    if (!needsQuotes(cell)) {
        text += cell;
        return;
    }
    text += u'"';
    for (const char16_t unit : cell) {
        text.append(unit == u'"' ? 2 : 1, unit);
    }
    text += u'"';
}

template <typename Cells>
void appendLine(std::u16string& text, const Cells& cells) {
    bool isFirst = true;
    for (const std::u16string_view cell : cells) {
        if (!isFirst) {
            text += u',';
        }
        isFirst = false;
        appendCell(text, cell);
    }
    text += u"\r\n";
}

}  // namespace

std::string csvOf(const Lists& lists, const std::vector<ListKind>& kinds) {
    std::size_t rows = 1;
    for (const ListKind kind : kinds) {
        rows += static_cast<std::size_t>(lists.grid(kind).rowCount());
    }
    ComposedFile file(u"", rows * kUsualRecordBytes);
    appendLine(file.text(), kCsvColumns);
    for (const ListKind kind : kinds) {
        const Grid& grid = lists.grid(kind);
        for (int row = 1; row <= grid.rowCount(); ++row) {
            const Record record = recordOf(grid, kind, row);
            appendLine(file.text(), std::array<std::u16string_view, kCsvColumns.size()>{
                                        shortNameOf(kind), record.programme, record.frequency, record.start,
                                        record.stop, record.target, record.system});
            file.endRecord();
        }
    }
    return file.takeBytes();
}
