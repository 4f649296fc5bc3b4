#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "adding/FieldRules.h"
#include "ctl/Commands.h"
#include "ctl/CountCheck.h"
#include "ctl/Duplicates.h"
#include "ctl/Faults.h"
#include "ctl/Messages.h"
#include "ctl/ParsedFiles.h"
#include "ctl/Record.h"
#include "ctl/Sources.h"
#include "storage/lists/ListRecords.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

namespace {

using Cells = std::span<const std::u16string_view>;

std::u16string_view cellAt(Cells cells, int column) { return cells[static_cast<std::size_t>(column - 1)]; }

// Checks the fields of the records of one list.
class RecordCheck {
public:
    RecordCheck(ListKind kind, Faults& faults) : kind_(kind), faults_(faults) {}

    void check(int row, Cells cells) {
        row_ = row;
        addUnlessEmpty(kProgrammeColumn, fieldError(kProgrammeRule, cellAt(cells, kProgrammeColumn)));
        if (kind_ == ListKind::Favourite) {
            checkFavourite(cells);
            return;
        }
        checkFrequency(kind_, cellAt(cells, kFrequencyColumn));
        if (kind_ == ListKind::Drm) {
            const Record record = recordOf(kind_, cells);
            if (!areTimes(record.start, record.stop)) {
                add(kTimeColumn, u"is not hh:mm-hh:mm with the start before the stop");
            }
            addUnlessEmpty(kTargetColumn, fieldError(kTargetRule, record.target));
        }
    }

private:
    void add(int column, std::u16string_view message) {
        faults_.add({kind_, row_, columnAt(columnsOf(kind_), column)->caption, message});
    }

    void addUnlessEmpty(int column, std::u16string_view message) {
        if (!message.empty()) {
            add(column, message);
        }
    }

    void checkFrequency(ListKind rules, std::u16string_view text) {
        addUnlessEmpty(kFrequencyColumn, fieldError({u"", rules}, text));
    }

    void checkFavourite(Cells cells) {
        const std::u16string_view system = cellAt(cells, kSystemColumn);
        std::u16string_view number = cellAt(cells, kFrequencyColumn);
        number.remove_suffix(ReceptionSystem::kUnitLength);  // always there
        for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
            if (system == ReceptionSystem::typeOf(kind)) {
                checkFrequency(kind, number);
                return;
            }
        }
        add(kSystemColumn, u"is none of DRM, AM and FM");
    }

    ListKind kind_;
    Faults& faults_;
    int row_ = 0;
};

struct ListFaults {
    explicit ListFaults(bool asJson) : counts(asJson), records(asJson) {}

    Faults counts;
    Faults records;
};

void checkList(ListKind kind, IniReader& file, ListFaults& faults) {
    CountCheck sections(file, kind, faults.counts);
    const int count = sections.count();
    ListRecords read(file, kind);
    RecordCheck fields(kind, faults.records);
    Duplicates duplicates(count);
    for (int row = 1; row <= count; ++row) {
        const Cells cells = read.cells(row - 1);
        sections.checkRecord(row - 1, cellAt(cells, kProgrammeColumn));
        fields.check(row, cells);
        duplicates.add(row, cells);
    }
    sections.checkRest();
    if (count > kMaxRecords) {
        faults.records.add(
            {kind, kMaxRecords + 1, u"count",
             u"over the " + decimal(kMaxRecords) + u" records of a list, which holds " + decimal(count)});
    }
    for (const Duplicates::Pair& duplicate : duplicates.find(read)) {
        faults.records.add({kind, duplicate.row, u"record", u"the same as row " + decimal(duplicate.first)});
    }
}

}  // namespace

Exit checkLists(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    auto source = openSource(services, options.source, fault);
    if (!source) {
        return fault;
    }
    std::array<ListFaults, kListCount> found{ListFaults(options.json), ListFaults(options.json),
                                             ListFaults(options.json), ListFaults(options.json)};
    const auto check = [&found](ListKind kind, IniReader& file) {
        checkList(kind, file, found[static_cast<std::size_t>(kind)]);
    };
    const ParsedFiles files = parsedWith(check, std::move(source->bytes));
    Faults faults(options.json);
    for (const ListFileId file : kListFiles) {
        if (files[file] && !files[file]->isWellFormed) {
            faults.add({std::nullopt, 0, source->paths[file], u"is not all UTF-8"});
        }
    }
    for (ListFaults& list : found) {
        faults.add(list.counts);
    }
    for (ListFaults& list : found) {
        faults.add(list.records);
    }
    const Exit result = faults.isEmpty() ? Exit::Done : Exit::Different;
    return print(services.console, faults.takeText(), result);
}
