#include <optional>
#include <string_view>
#include <utility>

#include "adding/FieldRules.h"
#include "ctl/CheckCounts.h"
#include "ctl/Commands.h"
#include "ctl/Duplicates.h"
#include "ctl/Faults.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "ctl/ParsedFiles.h"
#include "ctl/Record.h"
#include "ctl/Sources.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

namespace {

constexpr int kProgramme = 1;
constexpr int kFrequency = 2;
constexpr int kTimeOrSystem = 3;
constexpr int kTarget = 4;

class Checker {
public:
    Checker(const Lists& lists, Faults& faults) : lists_(lists), faults_(faults) {}

    void check(ListKind kind) {
        const int count = lists_.grid(kind).rowCount();
        for (int row = 1; row <= count; ++row) {
            checkRecord(kind, row);
        }
        if (count > kMaxRecords) {
            faults_.add({kind, kMaxRecords + 1, u"count",
                         u"over the " + decimal(kMaxRecords) + u" records of a list, which holds " + decimal(count)});
        }
        checkDuplicates(kind);
    }

private:
    void add(ListKind kind, int row, int column, std::u16string_view message) {
        const Grid& grid = lists_.grid(kind);
        faults_.add({kind, row, grid.columns()[static_cast<std::size_t>(column - 1)].caption, message});
    }

    void checkText(ListKind kind, int row, int column, const FieldRule& rule) {
        const std::u16string_view text = lists_.grid(kind).text(row, column);
        if (const std::u16string_view error = fieldError(rule, text); !error.empty()) {
            add(kind, row, column, error);
        }
    }

    void checkFrequency(ListKind kind, int row, ListKind rules, std::u16string_view text) {
        if (const std::u16string_view error = fieldError({u"", rules}, text); !error.empty()) {
            add(kind, row, kFrequency, error);
        }
    }

    void checkRecord(ListKind kind, int row) {
        const Grid& grid = lists_.grid(kind);
        checkText(kind, row, kProgramme, kProgrammeRule);
        if (kind == ListKind::Favourite) {
            checkFavourite(row);
            return;
        }
        checkFrequency(kind, row, kind, grid.text(row, kFrequency));
        if (kind == ListKind::Drm) {
            const Record record = recordOf(grid, kind, row);
            if (timeSpanOf(record.start, record.stop) != grid.text(row, kTimeOrSystem)) {
                add(kind, row, kTimeOrSystem, u"is not hh:mm-hh:mm with the start before the stop");
            }
            checkText(kind, row, kTarget, kTargetRule);
        }
    }

    void checkFavourite(int row) {
        const Grid& grid = lists_.grid(ListKind::Favourite);
        const std::u16string_view system = grid.text(row, kTimeOrSystem);
        std::u16string_view number = grid.text(row, kFrequency);
        number.remove_suffix(ReceptionSystem::kUnitLength);  // the loader always appends it
        for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
            if (system == ReceptionSystem::typeOf(kind)) {
                checkFrequency(ListKind::Favourite, row, kind, number);
                return;
            }
        }
        add(ListKind::Favourite, row, kTimeOrSystem, u"is none of DRM, AM and FM");
    }

    void checkDuplicates(ListKind kind) {
        const Grid& grid = lists_.grid(kind);
        Duplicates found(grid, columnCountOf(kind));
        for (int row = 1; row <= grid.rowCount(); ++row) {
            if (const int first = found.add(row); first != 0) {
                faults_.add({kind, row, u"record", u"the same as row " + decimal(first)});
            }
        }
    }

    const Lists& lists_;
    Faults& faults_;
};

}  // namespace

Exit checkLists(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    auto source = openSource(services, options.source, fault);
    if (!source) {
        return fault;
    }
    Faults faults(options.json);
    ParsedFiles files = parsed(std::move(source->bytes));
    for (const ListFileId file : kListFiles) {
        if (files[file] && !files[file]->isWellFormed) {
            faults.add({std::nullopt, 0, source->paths[file], u"is not all UTF-8"});
        }
    }
    checkCounts(files, faults);
    Lists lists;
    lists.load(std::move(files), services.files, services.codePages);
    Checker checker(lists, faults);
    for (const ListKind kind : kListKinds) {
        checker.check(kind);
    }
    const Exit result = faults.isEmpty() ? Exit::Done : Exit::Different;
    return print(services.console, faults.takeText(), result);
}
