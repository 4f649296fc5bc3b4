#include <utility>

#include "ctl/Commands.h"
#include "ctl/Lists.h"
#include "ctl/ListsDiff.h"
#include "ctl/Messages.h"
#include "ctl/Sources.h"

Exit printDiff(Services& services, const Options& options, const Lists& before, const Lists& after) {
    const auto changes = diffLists(before, after, options.ordered);
    return print(services.console, options.json ? jsonOf(changes) : linesOf(changes, services.console.showsColours()),
                 changes.empty() ? Exit::Done : Exit::Different);
}

Exit diffSources(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    auto oldSource = openSource(services, options.source, fault);
    auto newSource = oldSource ? openSource(services, options.newSource, fault) : std::nullopt;
    if (!newSource) {
        return fault;
    }
    Lists before;
    Lists after;
    before.load(std::move(oldSource->bytes), services.files, services.codePages);
    after.load(std::move(newSource->bytes), services.files, services.codePages);
    // Lists are compared only if both sources have their file.
    for (const ListKind kind : kListKinds) {
        if (!oldSource->has(kind) || !newSource->has(kind)) {
            before.grid(kind).clear();
            after.grid(kind).clear();
        }
    }
    return printDiff(services, options, before, after);
}
