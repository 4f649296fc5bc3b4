#include "ctl/Change.h"

#include <utility>

#include "ctl/Commands.h"
#include "ctl/ListsDiff.h"
#include "ctl/Messages.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

Exit printCounts(Services& services, const Lists& before, const Lists& after) {
    std::u16string text;
    for (const ListKind kind : kListKinds) {
        const int old = before.grid(kind).rowCount();
        const int now = after.grid(kind).rowCount();
        ((text += nameOf(kind)) += u": ") += decimal(old) + u" -> " + decimal(now) + u" records\n";
    }
    return print(services.console, toUtf8(text));
}

Exit openForChange(Services& services, const Options& options, WorkingLists& working, Lists& lists) {
    if (!options.dryRun && !working.claim()) {
        return Exit::Busy;
    }
    WorkingCopyBytes bytes = working.read();
    if (working.isUnreadable()) {
        return fileFault(services.console, services.folder, u"the working copies cannot be read");
    }
    lists.load(std::move(bytes), services.files, services.codePages);
    return Exit::Done;
}

Exit openForChange(Services& services, const Options& options, WorkingLists& working, Lists& before, Lists& after) {
    const Exit opened = openForChange(services, options, working, before);
    if (opened == Exit::Done) {
        after.copyFrom(before);
    }
    return opened;
}

Exit storeLists(Services& services, const Options& options, WorkingLists& working, const Lists& before, Lists& after) {
    if (options.dryRun) {
        return printDiff(services, options, before, after);
    }
    if (!working.replace(after.compose(working.paths(), services.files, services.codePages))) {
        return Exit::File;
    }
    return printCounts(services, before, after);
}
