// Any pair of list files: the lists that are exported and imported again are the same.
#include <algorithm>
#include <vector>

#include "ctl/CsvRecords.h"
#include "ctl/CsvWriter.h"
#include "ctl/Lists.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fuzz/Fuzz.h"
#include "storage/text/Utf8.h"

namespace {

int rowCountOf(const Lists& lists) {
    int count = 0;
    for (const ListKind kind : kListKinds) {
        count += lists.grid(kind).rowCount();
    }
    return count;
}

// The file is in UTF-8, which has no unpaired surrogates.
std::u16string asUtf8(std::u16string_view text) { return fromUtf8(toUtf8(text)); }

void checkRead(const Lists& lists, const CsvRecords& csv) {
    auto read = csv.records.begin();
    for (const ListKind kind : kListKinds) {
        for (int row = 1; row <= lists.grid(kind).rowCount(); ++row, ++read) {
            const Record written = recordOf(lists.grid(kind), kind, row);
            promise(read->list == kind, "each record is of its list");
            promise(read->record.programme == asUtf8(written.programme), "the same programme");
            promise(read->record.target == asUtf8(written.target), "the same target");
            promise(kind != ListKind::Drm ||
                        (read->record.start == asUtf8(written.start) && read->record.stop == asUtf8(written.stop)),
                    "the same times");
            promise(kind != ListKind::Favourite || read->record.system == asUtf8(written.system), "the same system");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = bytesOf(data, size);
    const std::size_t cut = std::min(bytes.find('\x01'), bytes.size());
    FakeFiles files;
    FakeCodePages codePages;
    const WorkingCopyBytes read{bytes.substr(0, cut), cut < bytes.size() ? bytes.substr(cut + 1) : ""};
    Lists lists;
    lists.load(read, files, codePages);
    if (rowCountOf(lists) > 2000) {
        return 0;  // huge counts only cost time
    }
    const std::string exported = csvOf(read);
    const std::u16string text = fromUtf8(exported);
    const CsvRecords csv = readCsv(text, std::nullopt);
    promise(csv.unknownColumns.empty(), "every column is known");
    promise(csv.records.size() == static_cast<std::size_t>(rowCountOf(lists)), "each row is read as one record");
    checkRead(lists, csv);
    if (!csv.faults.empty()) {
        return 0;  // records that may not be added are not imported
    }
    Lists imported;
    for (const CsvRecord& record : csv.records) {
        appendRecord(imported.grid(record.list), record.list, record.record);
    }
    const WorkingCopyBytes saved = imported.compose({u"/List.ini", u"/User.ini"}, files, codePages);
    promise(csvOf(saved) == exported, "what is imported and saved is exported as the same bytes");
    return 0;
}
