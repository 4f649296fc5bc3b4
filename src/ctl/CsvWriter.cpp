#include "ctl/CsvWriter.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "ctl/Lists.h"
#include "ctl/ParsedFiles.h"
#include "ctl/Record.h"
#include "storage/lists/ComposedFile.h"
#include "storage/lists/ListRecords.h"
#include "storage/text/Utf8.h"

namespace {

constexpr std::size_t kUsualRecordBytes = 64;

// Readers may take any of these for a separator. All but one are below the digits, which most cells consist of.
bool isSpecial(char16_t unit) {
    return unit == u';' ||
           (unit < u'0' && (unit == u'"' || unit == u',' || unit == u'\t' || unit == u'\r' || unit == u'\n'));
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

std::string linesOf(IniReader& file, ListKind kind) {
    ListRecords records(file, kind);
    const int count = std::max(records.count().value_or(0), 0);
    ComposedFile csv(u"", static_cast<std::size_t>(count) * kUsualRecordBytes);
    for (int index = 0; index < count; ++index) {
        const Record record = recordOf(kind, records.cells(index));
        appendLine(csv.text(), std::array<std::u16string_view, kCsvColumns.size()>{
                                   shortNameOf(kind), record.programme, record.frequency, record.start, record.stop,
                                   record.target, record.system});
        csv.endRecord();
    }
    return csv.takeBytes();
}

}  // namespace

std::string csvOf(WorkingCopyBytes files) {
    std::array<std::string, kListCount> lines;
    const auto compose = [&lines](ListKind kind, IniReader& file) {
        lines[static_cast<std::size_t>(kind)] = linesOf(file, kind);
    };
    parsedWith(compose, std::move(files));
    std::u16string header;
    appendLine(header, kCsvColumns);
    std::string csv = toUtf8(header);
    std::size_t size = csv.size();
    for (const std::string& list : lines) {
        size += list.size();
    }
    csv.reserve(size);
    for (std::string& list : lines) {
        csv += std::exchange(list, {});  // frees it
    }
    return csv;
}
