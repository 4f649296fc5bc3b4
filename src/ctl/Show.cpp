#include <string>
#include <vector>

#include "ctl/Commands.h"
#include "ctl/JsonLists.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "ctl/ShowTable.h"
#include "ctl/Sources.h"

Exit showLists(Services& services, const Options& options) {
    if (options.isListOrSource && options.source != kReceiver && !options.source.starts_with(kBackupPrefix) &&
        !services.files.exists(absolutePath(services.currentFolder, options.source))) {
        return fileFault(services.console, options.source,
                         u"is none of drm, am, fm and fav, and there is no such file or folder");
    }
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
