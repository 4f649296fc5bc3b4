#include "receiver/ReceiverFiles.h"

#include <utility>
#include <vector>

#include "storage/files/VerifiedFiles.h"

bool ReceiverFiles::findDisk() {
    root_ = driver_.FindReceiverDisk();
    return root_.find(kUnknownDriver) == root_.npos;
}

std::optional<std::u16string> ReceiverFiles::missingFile() {
    for (const ListFileId file : kListFiles) {
        if (!files_.exists(pathOf(file))) {
            return pathOf(file);
        }
    }
    return std::nullopt;
}

// A mount point may be unmounted at any time, and the folder below it would take the files. So the folder is opened
// first and the disk checked afterwards. It stays open for one command only: the user could not unmount it.
std::unique_ptr<Files> ReceiverFiles::openDisk() {
    auto disk = files_.openFolder(std::u16string_view(root_).substr(0, root_.find_last_not_of(u"/\\") + 1));
    return driver_.isReceiver(root_) ? std::move(disk) : nullptr;
}

std::optional<ListFilePair> ReceiverFiles::read() {
    const auto disk = openDisk();
    auto list = disk ? disk->read(pathOf(ListFileId::List)).bytes : std::nullopt;
    auto user = list ? disk->read(pathOf(ListFileId::User)).bytes : std::nullopt;
    return user ? std::optional(ListFilePair{std::move(*list), std::move(*user)}) : std::nullopt;
}

bool ReceiverFiles::replace(ListFilePair pair) {
    const auto disk = openDisk();
    if (!disk) {
        return false;
    }
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        newFiles.push_back({pathOf(file), std::move(pair[file])});
        const FileRead old = disk->read(newFiles.back().path);
        if (old.bytes) {
            backup_.keep(ListFile::nameOf(file), *old.bytes);
        } else {
            backup_.keepPart(ListFile::nameOf(file), old.part);
        }
    }
    return replaceVerified(*disk, newFiles);
}
