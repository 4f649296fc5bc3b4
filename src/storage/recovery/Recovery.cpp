#include "storage/recovery/Recovery.h"

#include <utility>

#include "storage/files/SafeFile.h"

Recovery::Recovery(std::u16string_view programFolder, Files& files)
    : folder_(std::u16string(programFolder) + u"Recovery"), files_(files) {
    const char16_t separator = programFolder.empty() ? u'/' : programFolder.back();
    slots_ = {folder_ + separator + u"Snapshot1", folder_ + separator + u"Snapshot2"};
}

std::optional<WorkingCopyBytes> Recovery::find() {
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        const auto file = readWorkingCopy(slots_[slot], files_);
        auto snapshot = file ? decodeSnapshot(*file) : std::nullopt;
        if (snapshot && (!kept_ || snapshot->number > number_)) {
            newest_ = slot;
            number_ = snapshot->number;
            kept_ = std::move(snapshot->bytes);
        }
    }
    return kept_;
}

bool Recovery::keep(WorkingCopyBytes bytes) {
    if (kept_ && !bytes.list) {
        bytes.list = kept_->list;
    }
    if (kept_ && !bytes.user) {
        bytes.user = kept_->user;
    }
    if (isDurable_ && kept_ == bytes) {
        return true;
    }
    // Never the slot of the newest whole one.
    const std::size_t slot = kept_ ? (newest_ + 1) % kSlots : newest_;
    const std::string snapshot = encodeSnapshot(number_ + 1, bytes);
    const auto write = [&] { return files_.createFolder(folder_) && files_.write(slots_[slot], snapshot, Flush::Now); };
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
    ++number_;
    kept_ = std::move(bytes);
    return true;
}

void Recovery::discard() {
    // The newest goes last: alone, the older one would be taken for what to go back to.
    for (const std::size_t slot : {(newest_ + 1) % kSlots, newest_}) {
        if (files_.exists(slots_[slot]) && !files_.remove(slots_[slot])) {
            return;
        }
    }
    files_.removeFolder(folder_);
    kept_.reset();
    isNamed_ = {};
    isDurable_ = false;
}
