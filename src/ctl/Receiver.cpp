#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "ctl/Change.h"
#include "ctl/Commands.h"
#include "ctl/ListsDiff.h"
#include "ctl/Messages.h"
#include "ctl/Sources.h"
#include "receiver/ReceiverFiles.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

struct Receiver {
    explicit Receiver(Services& services)
        : driver(services.volumes, services.files),
          backup(services.folder, services.files, services.clock),
          files(driver, root, services.files, backup) {}
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    mFindDiskDriver driver;
    std::u16string root;
    Backup backup;
    ReceiverFiles files;
};

double capacityOf(Services& services, std::u16string_view root) {
    const DiskGeometry geometry = services.volumes.geometry(root).value_or(DiskGeometry());
    return static_cast<double>(geometry.sectorsPerCluster) * static_cast<double>(geometry.totalClusters) *
           static_cast<double>(geometry.bytesPerSector);
}

std::string statusLines(Services& services, const std::u16string& root, const Lists& lists,
                        const std::vector<RecordChange>& changes) {
    std::u16string text = u"Root:     " + printable(root) + u"\n";
    text += u"Capacity: " + shortestDecimal(capacityOf(services, root)) + u" bytes\n";
    text += u"Records: ";
    for (const ListKind kind : kListKinds) {
        (text += u" ") += std::u16string(nameOf(kind)) + u" " + decimal(lists.grid(kind).rowCount());
    }
    text += changes.empty() ? u"\nThe working copies hold the same lists.\n"
                            : u"\nThe working copies differ (+ and -: only in the working copies, on the receiver):\n";
    return toUtf8(text) + linesOf(changes, services.console.showsColours());
}

std::string statusJson(Services& services, const std::u16string& root, const Lists& lists,
                       const std::vector<RecordChange>& changes) {
    nlohmann::ordered_json counts;
    for (const ListKind kind : kListKinds) {
        counts[toUtf8(shortNameOf(kind))] = lists.grid(kind).rowCount();
    }
    nlohmann::ordered_json status;
    status["root"] = toUtf8(root);
    status["capacity"] = static_cast<std::int64_t>(capacityOf(services, root));
    status["records"] = std::move(counts);
    status["differences"] = nlohmann::ordered_json::parse(jsonOf(changes));
    return status.dump(2) + "\n";
}

}  // namespace

Exit showReceiverStatus(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    Lists theirs;
    Lists ours;
    if (!openSource(services, u"receiver", theirs, fault) || !openSource(services, {}, ours, fault)) {
        return fault;
    }
    // Ordered, since the receiver shows records in this order.
    const auto changes = diffLists(theirs, ours, true);
    Receiver receiver(services);
    receiver.files.findDisk();
    return print(services.console,
                 options.json ? statusJson(services, receiver.root, theirs, changes)
                              : statusLines(services, receiver.root, theirs, changes),
                 changes.empty() ? Exit::Done : Exit::Different);
}

Exit loadFromReceiver(Services& services, const Options& options) {
    WorkingLists working(services);
    Lists before;
    if (const Exit opened = openForChange(services, options, working, before); opened != Exit::Done) {
        return opened;
    }
    Exit fault = Exit::Done;
    Lists after;
    if (!openSource(services, u"receiver", after, fault)) {
        return fault;
    }
    return storeLists(services, options, working, before, after);
}

Exit saveToReceiver(Services& services, const Options& options) {
    WorkingLists working(services);
    Lists ours;
    if (const Exit opened = openForChange(services, options, working, ours); opened != Exit::Done) {
        return opened;
    }
    Receiver receiver(services);
    if (!receiver.files.findDisk()) {
        complain(services.console, kNoReceiver);
        return Exit::NoReceiver;
    }
    Lists theirs;
    if (auto old = receiver.files.read()) {
        theirs.load({std::move(old->list), std::move(old->user)}, services.files, services.codePages);
    }
    if (options.dryRun) {
        return printDiff(services, options, theirs, ours);
    }
    WorkingCopyBytes bytes = ours.compose(working.paths(), services.files, services.codePages);
    if (!bytes.list || !bytes.user || !receiver.files.replace({std::move(*bytes.list), std::move(*bytes.user)})) {
        return fileFault(services.console, receiver.root,
                         u"the lists cannot be written and read back; nothing has been changed");
    }
    return printCounts(services, theirs, ours);
}
