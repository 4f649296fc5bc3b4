#include <string>
#include <vector>

#include "ctl/Commands.h"
#include "ctl/JsonLists.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "ctl/Record.h"
#include "ctl/ShowTable.h"
#include "ctl/Sources.h"
#include "ctl/TextSearch.h"
#include "storage/text/Numbers.h"

namespace {

std::u16string twoDigits(int number) { return number < 10 ? u"0" + decimal(number) : decimal(number); }

class Search {
public:
    Search(const Options& options, const UtcTime& now) : options_(options) {
        if (options.now) {
            time_ = twoDigits(now.hour) + u":" + twoDigits(now.minute);
        } else if (options.at) {
            time_ = options.at->substr(0, 2) + u":" + options.at->substr(2);
        }
    }

    bool finds(const Record& record) const {
        return (containsText(record.programme, options_.text) || containsText(record.target, options_.text)) &&
               isNear(record) && isOnAir(record);
    }

private:
    bool isNear(const Record& record) const {
        if (!options_.kHz) {
            return true;
        }
        const double kHz = leadingNumber(record.frequency);
        return kHz >= options_.kHz->middle - options_.kHz->reach && kHz <= options_.kHz->middle + options_.kHz->reach;
    }

    // A broadcast has ended at its stop time.
    bool isOnAir(const Record& record) const {
        if (time_.empty()) {
            return true;
        }
        return areTimes(record.start, record.stop) && record.start <= time_ && time_ < record.stop;
    }

    const Options& options_;
    std::u16string time_;  // hh:mm; empty: any
};

}  // namespace

Exit findRecords(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    Lists lists;
    const auto source = openSource(services, options.source, lists, fault);
    if (!source) {
        return fault;
    }
    const Search search(options, services.clock.now());
    const Grid& drm = lists.grid(ListKind::Drm);
    std::vector<int> found;
    for (int row = 1; row <= drm.rowCount(); ++row) {
        if (search.finds(recordOf(drm, ListKind::Drm, row))) {
            found.push_back(row);
        }
    }
    if (options.json) {
        return print(services.console, jsonOf(lists, ListKind::Drm, found),
                     found.empty() ? Exit::Different : Exit::Done);
    }
    if (found.empty()) {
        complain(services.console, u"nothing found");
        return Exit::Different;
    }
    return print(services.console, tableOf(lists, ListKind::Drm, found, services.console.showsColours()));
}
