#include "receiver/ReceiverFiles.h"

#include <utility>
#include <vector>

#include "storage/files/VerifiedFiles.h"
#include "storage/lists/ListFile.h"

bool ReceiverFiles::findDisk() {
    root_ = driver_.FindReceiverDisk();
    return root_.find(kUnknownDriver) == root_.npos;
}

std::optional<std::u16string> ReceiverFiles::missingFile() {
    for (const std::u16string_view name : {ListFile::kListName, ListFile::kUserName}) {
        if (!files_.exists(pathOf(name))) {
            return pathOf(name);
        }
    }
    return std::nullopt;
}

std::optional<ListFilePair> ReceiverFiles::read() {
    auto list = files_.read(pathOf(ListFile::kListName));
    auto user = list ? files_.read(pathOf(ListFile::kUserName)) : std::nullopt;
    return user ? std::optional(ListFilePair{std::move(*list), std::move(*user)}) : std::nullopt;
}

bool ReceiverFiles::replace(ListFilePair pair) {
    std::vector<NewFile> newFiles;
    newFiles.push_back({pathOf(ListFile::kListName), std::move(pair.list)});
    newFiles.push_back({pathOf(ListFile::kUserName), std::move(pair.user)});
    for (const std::u16string_view name : {ListFile::kListName, ListFile::kUserName}) {
        if (const auto old = files_.read(pathOf(name))) {
            backup_.keep(name, *old);
        }
    }
    return replaceVerified(files_, newFiles);
}
