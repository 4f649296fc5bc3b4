#include <string>
#include <vector>

#include "ctl/Commands.h"
#include "ctl/JsonLists.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "ctl/ShowTable.h"
#include "ctl/Sources.h"

Exit showLists(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    Lists lists;
    const auto source = openSource(services, options.source, lists, fault);
    if (!source) {
        return fault;
    }
    std::vector<ListKind> kinds;
    for (const ListKind kind : kListKinds) {
        if (source->has(kind) && options.list.value_or(kind) == kind) {
            kinds.push_back(kind);
        }
    }
    return print(services.console,
                 options.json ? jsonOf(lists, kinds) : tablesOf(lists, kinds, services.console.showsColours()));
}
