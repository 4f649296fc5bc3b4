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

std::optional<ListFilePair> ReceiverFiles::read() {
    auto list = files_.read(pathOf(ListFileId::List)).bytes;
    auto user = list ? files_.read(pathOf(ListFileId::User)).bytes : std::nullopt;
    return user ? std::optional(ListFilePair{std::move(*list), std::move(*user)}) : std::nullopt;
}

bool ReceiverFiles::replace(ListFilePair pair) {
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        newFiles.push_back({pathOf(file), std::move(pair[file])});
        if (const auto old = files_.read(newFiles.back().path).bytes) {
            backup_.keep(ListFile::nameOf(file), *old);
        }
    }
    return replaceVerified(files_, newFiles);
}
