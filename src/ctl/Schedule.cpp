#include <numeric>
#include <vector>

#include "ctl/Change.h"
#include "ctl/Commands.h"
#include "ctl/JsonLists.h"
#include "ctl/Messages.h"
#include "ctl/Record.h"
#include "ctl/ScheduleRows.h"
#include "ctl/ShowTable.h"
#include "storage/text/Numbers.h"

namespace {

bool isListed(const Grid& drm, int rowCount, const Grid& schedule, int row) {
    for (int listed = 1; listed <= rowCount; ++listed) {
        bool same = true;
        for (const int column : {2, 3, 4}) {
            same = same && drm.text(listed, column) == schedule.text(row, column);
        }
        if (same) {
            return true;
        }
    }
    return false;
}

Exit store(Services& services, const Options& options, WorkingLists& working, const Lists& before, Lists& after) {
    const int count = after.grid(ListKind::Drm).rowCount();
    if (count > kMaxRecords) {
        complain(services.console, u"DRM: " + decimal(count) + u" records or more. " + std::u16string(kListFull) +
                                       u" Nothing has been changed; --first N takes the first N");
        return Exit::Different;
    }
    return storeLists(services, options, working, before, after);
}

void append(Grid& drm, const Grid& schedule, int row) {
    drm.appendRow({schedule.text(row, 1), schedule.text(row, 2), schedule.text(row, 3), schedule.text(row, 4)});
}

}  // namespace

Exit showSchedule(Services& services, const Options& options) {
    Lists lists;
    RowStore schedule;
    if (const Exit read = readSchedule(services, options, schedule); read != Exit::Done) {
        return read;
    }
    std::vector<int> rows;
    for (int row = 1; row <= schedule.rowCount(); ++row) {
        append(lists.grid(ListKind::Drm), schedule, row);
        rows.push_back(row);
    }
    const Exit result = rows.empty() ? Exit::Different : Exit::Done;
    if (options.json) {
        return print(services.console, jsonOf(lists, ListKind::Drm, rows), result);
    }
    if (rows.empty()) {
        complain(services.console, u"nothing found");
        return result;
    }
    return print(services.console, tableOf(lists, ListKind::Drm, rows, services.console.showsColours()));
}

Exit takeSchedule(Services& services, const Options& options) {
    RowStore schedule;
    if (const Exit read = readSchedule(services, options, schedule); read != Exit::Done) {
        return read;
    }
    WorkingLists working(services);
    Lists before;
    Lists after;
    if (const Exit opened = openForChange(services, options, working, before, after); opened != Exit::Done) {
        return opened;
    }
    Grid& drm = after.grid(ListKind::Drm);
    const bool merges = options.verb == Verb::ScheduleMerge;
    if (!merges) {
        drm.clear();
    }
    for (int row = 1; row <= schedule.rowCount(); ++row) {
        // Without merging, duplicates stay, as in the window's sync.
        if (!merges || !isListed(drm, drm.rowCount(), schedule, row)) {
            append(drm, schedule, row);
        }
    }
    return store(services, options, working, before, after);
}
