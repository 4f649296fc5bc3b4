#include <nlohmann/json.hpp>

#include "ctl/ListsDiff.h"
#include "ctl/Messages.h"
#include "storage/lists/ComposedFile.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

constexpr std::u16string_view kRed = u"\x1B[31m";
constexpr std::u16string_view kGreen = u"\x1B[32m";
constexpr std::u16string_view kYellow = u"\x1B[33m";
constexpr std::u16string_view kPlain = u"\x1B[0m";

bool isAdded(const RecordChange& change) { return change.oldRow == 0; }
bool isRemoved(const RecordChange& change) { return change.newRow == 0; }

std::u16string inQuotes(std::u16string_view text) { return u"\"" + printable(text) + u"\""; }

void appendRecord(std::u16string& line, const RecordChange& change) {
    for (std::size_t i = 0; i < change.cells.size(); ++i) {
        (line += i == 0 ? u"" : u" | ") += printable(change.cells[i]);
    }
}

void appendFields(std::u16string& line, const RecordChange& change) {
    (line += printable(change.cells.front())) += u": ";
    for (std::size_t i = 0; i < change.fields.size(); ++i) {
        const FieldChange& field = change.fields[i];
        ((line += i == 0 ? u"" : u", ") += field.field) += u' ';
        ((line += inQuotes(field.from)) += u" -> ") += inQuotes(field.to);
    }
}

nlohmann::ordered_json objectOf(const RecordChange& change) {
    nlohmann::ordered_json object;
    object["change"] = isAdded(change) ? "added" : isRemoved(change) ? "removed" : "changed";
    object["list"] = toUtf8(shortNameOf(change.list));
    if (!isAdded(change)) {
        object["old_row"] = change.oldRow;
    }
    if (!isRemoved(change)) {
        object["new_row"] = change.newRow;
    }
    nlohmann::ordered_json cells = nlohmann::ordered_json::array();
    for (const std::u16string& cell : change.cells) {
        cells.push_back(toUtf8(cell));
    }
    object["record"] = std::move(cells);
    if (!change.fields.empty()) {
        nlohmann::ordered_json fields = nlohmann::ordered_json::array();
        for (const FieldChange& field : change.fields) {
            fields.push_back({{"field", toUtf8(field.field)}, {"from", toUtf8(field.from)}, {"to", toUtf8(field.to)}});
        }
        object["fields"] = std::move(fields);
    }
    return object;
}

}  // namespace

std::string linesOf(const std::vector<RecordChange>& changes, bool colours) {
    constexpr std::size_t kUsualLine = 64;
    ComposedFile file(u"", changes.size() * kUsualLine);
    for (const RecordChange& change : changes) {
        std::u16string& line = file.text();
        const int row = isAdded(change) ? change.newRow : change.oldRow;
        if (colours) {
            line += isAdded(change) ? kGreen : isRemoved(change) ? kRed : kYellow;
        }
        line += isAdded(change) ? u"+ " : isRemoved(change) ? u"- " : u"~ ";
        ((line += nameOf(change.list)) += u' ') += decimal(row) + u": ";
        if (isAdded(change) || isRemoved(change)) {
            appendRecord(line, change);
        } else {
            appendFields(line, change);
        }
        line += colours ? kPlain : u"";
        line += u'\n';
        file.endRecord();
    }
    return file.takeBytes();
}

std::string jsonOf(const std::vector<RecordChange>& changes) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const RecordChange& change : changes) {
        array.push_back(objectOf(change));
    }
    return array.dump(2) + "\n";
}
