#include <algorithm>
#include <string>

#include "ctl/Change.h"
#include "ctl/Commands.h"
#include "ctl/CsvRecords.h"
#include "ctl/Input.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "storage/text/Numbers.h"

namespace {

void complainOf(Console& console, std::u16string_view path, const CsvFault& fault) {
    std::u16string message(path);
    message += u":" + decimal(fault.line) + u": ";
    if (!fault.column.empty()) {
        message += fault.column + u" ";
    }
    complain(console, message + fault.reason);
}

Exit refuse(Console& console, std::u16string_view path, const std::vector<CsvFault>& faults) {
    constexpr std::size_t kMostListed = 20;
    const std::size_t listed = std::min(faults.size(), kMostListed);
    for (std::size_t i = 0; i < listed; ++i) {
        complainOf(console, path, faults[i]);
    }
    if (faults.size() > listed) {
        complain(console, u"and " + decimal(static_cast<int>(faults.size() - listed)) + u" more faults");
    }
    complain(console, u"nothing has been changed");
    return Exit::Different;
}

void fill(Lists& lists, const Options& options, const CsvRecords& csv) {
    for (const ListKind kind : kListKinds) {
        if (options.replace && options.list.value_or(kind) == kind) {
            lists.grid(kind).clear();
        }
    }
    for (const CsvRecord& record : csv.records) {
        appendRecord(lists.grid(record.list), record.list, record.record);
    }
}

bool fits(Services& services, const Lists& lists, const Lists& before) {
    for (const ListKind kind : kListKinds) {
        const int count = lists.grid(kind).rowCount();
        if (count > kMaxRecords && count > before.grid(kind).rowCount()) {
            complain(services.console, std::u16string(nameOf(kind)) + u": " + decimal(count) + u" records. " +
                                           std::u16string(kListFull) + u" Nothing has been changed");
            return false;
        }
    }
    return true;
}

}  // namespace

Exit importCsv(Services& services, const Options& options) {
    std::u16string text;
    std::u16string name;
    if (const Exit read = readInputText(services, options.input, name, text); read != Exit::Done) {
        return read;
    }
    const CsvRecords csv = readCsv(text, options.list);
    for (const std::u16string& column : csv.unknownColumns) {
        std::u16string message = name;
        message.append(u": the column \"").append(column).append(u"\" is unknown and left out");
        warn(services.console, message);
    }
    if (!csv.faults.empty()) {
        return refuse(services.console, name, csv.faults);
    }
    WorkingLists working(services);
    Lists before;
    Lists after;
    if (const Exit opened = openForChange(services, options, working, before, after); opened != Exit::Done) {
        return opened;
    }
    fill(after, options, csv);
    return fits(services, after, before) ? storeLists(services, options, working, before, after) : Exit::Different;
}
