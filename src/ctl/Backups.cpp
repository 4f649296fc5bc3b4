#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "ctl/Change.h"
#include "ctl/Commands.h"
#include "ctl/Messages.h"
#include "ctl/Sources.h"
#include "ctl/Table.h"
#include "storage/lists/ListFile.h"
#include "storage/recovery/Backup.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

// Sizes of the copies with one stamp; 0 if there is no copy of that file.
using BackupSizes = PerListFile<std::uint64_t>;  // bytes

// Stamps of one second sort by their counts, not as texts.
using Order = std::pair<std::u16string, int>;
using Backups = std::map<Order, std::pair<std::u16string, BackupSizes>>;

Backups readBackups(Services& services) {
    Backup backup(services.folder, services.files, services.clock);
    Backups found;
    const auto copies = backup.copies();
    for (const ListFileId file : kListFiles) {
        for (const Backup::Copy& copy : copies[file]) {
            auto& [id, sizes] = found[{copy.stamp, copy.count}];
            id = copy.id();
            sizes[file] = services.files.size(backup.pathOf(copy)).value_or(0);
        }
    }
    return found;
}

std::string tableOf(const Backups& backups, bool colours) {
    Table table;
    table.addColumn(u"Stamp", Table::Align::Left);
    table.addColumn(ListFile::kListName, Table::Align::Right);
    table.addColumn(ListFile::kUserName, Table::Align::Right);
    const auto cell = [](std::uint64_t size) { return size == 0 ? u"-" : decimal(static_cast<int>(size)) + u" bytes"; };
    for (const auto& [order, backup] : backups) {
        const auto& [id, sizes] = backup;
        const std::u16string list = cell(sizes.list);
        const std::u16string user = cell(sizes.user);
        table.addRow({id, list, user});
    }
    return table.compose(colours);
}

std::string jsonOf(const Backups& backups) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const auto& [order, backup] : backups) {
        const auto& [id, sizes] = backup;
        nlohmann::ordered_json object{{"stamp", toUtf8(id)}};
        if (sizes.list > 0) {
            object["list_bytes"] = sizes.list;
        }
        if (sizes.user > 0) {
            object["user_bytes"] = sizes.user;
        }
        array.push_back(std::move(object));
    }
    return array.dump(2) + "\n";
}

}  // namespace

Exit listBackups(Services& services, const Options& options) {
    const Backups backups = readBackups(services);
    if (options.json) {
        return print(services.console, jsonOf(backups), backups.empty() ? Exit::Different : Exit::Done);
    }
    if (backups.empty()) {
        complain(services.console, services.folder + u"Backup: there are no backups");
        return Exit::Different;
    }
    return print(services.console, tableOf(backups, services.console.showsColours()));
}

Exit restoreBackup(Services& services, const Options& options) {
    WorkingLists working(services);
    Lists before;
    if (const Exit opened = openForChange(services, options, working, before); opened != Exit::Done) {
        return opened;
    }
    Exit fault = Exit::Done;
    auto source = openSource(services, options.source, fault);
    if (!source) {
        return fault;
    }
    // A file without a copy in the backup is not changed.
    const WorkingCopyBytes old = working.read();
    for (const ListFileId file : kListFiles) {
        source->bytes[file] = source->bytes[file] ? source->bytes[file] : old[file];
    }
    Lists after;
    after.load(std::move(source->bytes), services.files, services.codePages);
    return storeLists(services, options, working, before, after);
}
