#include "storage/recovery/Recovery.h"

#include <utility>

#include "storage/files/SafeFile.h"

Recovery::Recovery(std::u16string_view programFolder, Files& files)
    : folder_(std::u16string(programFolder) + u"Recovery"), files_(files) {
    const char16_t separator = programFolder.empty() ? u'/' : programFolder.back();
    slots_ = {folder_ + separator + u"Snapshot1", folder_ + separator + u"Snapshot2"};
}

std::optional<Snapshot> Recovery::find() {
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        const auto file = readWorkingCopy(slots_[slot], files_);
        auto snapshot = file ? decodeSnapshot(*file) : std::nullopt;
        if (snapshot && (!kept_ || snapshot->number > kept_->number)) {
            newest_ = slot;
            kept_ = std::move(snapshot);
        }
    }
    return kept_;
}

bool Recovery::keep(WorkingCopyBytes bytes) {
    for (const ListFileId file : kListFiles) {
        if (kept_ && !bytes[file]) {
            bytes[file] = kept_->bytes[file];
        }
    }
    if (isDurable_ && kept_->bytes == bytes && kept_->left == left_) {
        return true;
    }
    // Never overwrite the newest whole snapshot.
    const std::size_t slot = kept_ ? (newest_ + 1) % kSlots : newest_;
    Snapshot snapshot{kept_ ? kept_->number + 1 : 1, std::move(bytes), left_};
    const std::string encoded = encodeSnapshot(snapshot);
    const auto write = [&] { return files_.createFolder(folder_) && files_.write(slots_[slot], encoded, Flush::Now); };
    if (!write() && !write()) {
        return false;
    }
    if (!std::exchange(isNamed_[slot], true)) {
        files_.flushFolderOf(slots_[slot]);
    }
    if (!std::exchange(isDurable_, true)) {
        files_.flushFolderOf(folder_);
    }
    newest_ = slot;
    kept_ = std::move(snapshot);
    return true;
}

void Recovery::save(ListSaver& saver) {
    const WorkingCopyBytes bytes = saver.compose();
    const bool kept = keep(bytes);
    saver.SaveLists(bytes);
    if (kept && saver.ListsSaved()) {
        for (const ListFileId file : kListFiles) {
            leaves(file, FileState::of(*bytes[file]));
        }
        keep(bytes);
    }
}

void Recovery::keepNewestOnly() {
    const std::u16string& older = slots_[(newest_ + 1) % kSlots];
    if (files_.exists(older)) {
        files_.remove(older);
    }
}
