#include "storage/recovery/Recovery.h"

#include <utility>

#include "storage/files/SafeFile.h"
#include "storage/recovery/SnapshotChange.h"

Recovery::Recovery(std::u16string_view programFolder, Files& files)
    : folder_(std::u16string(programFolder) + u"Recovery"), files_(files) {
    const char16_t separator = programFolder.empty() ? u'/' : programFolder.back();
    slots_ = {folder_ + separator + u"Snapshot1", folder_ + separator + u"Snapshot2"};
}

std::optional<Snapshot> Recovery::find() {
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        const auto bytes = readWorkingCopy(slots_[slot], files_);
        auto file = bytes ? decodeSnapshot(*bytes) : std::nullopt;
        if (!file) {
            continue;
        }
        const Room room = readChanges(std::string_view(*bytes).substr(file->size), *file);
        if (!kept_ || file->snapshot.number > kept_->number) {
            newest_ = slot;
            room_ = room;
            kept_ = std::move(file->snapshot);
            lastNumber_ = kept_->number;
        }
    }
    return kept_;
}

// Applies the changes after a snapshot, `rest`. A change after an interrupted one would not be found.
Recovery::Room Recovery::readChanges(std::string_view rest, SnapshotFile& file) {
    const std::size_t all = rest.size();
    int changes = 0;
    while (file.takesChanges && applyChange(rest, file.snapshot)) {
        ++changes;
    }
    if (!file.takesChanges || !rest.empty() || changes >= kMostChanges || all >= file.size / 2) {
        return {};
    }
    return {file.size + all, file.size / 2 - all, kMostChanges - changes};
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
    Snapshot snapshot{0, std::move(bytes), left_};
    // A failed change may be in the file nevertheless, so every attempt gets a higher number.
    snapshot.number = ++lastNumber_;
    if (!append(snapshot)) {
        snapshot.number = ++lastNumber_;
        if (!write(snapshot)) {
            return false;
        }
    }
    kept_ = std::move(snapshot);
    return true;
}

bool Recovery::append(const Snapshot& snapshot) {
    const auto change = room_.changes > 0 ? encodeChange(*kept_, snapshot) : std::nullopt;
    if (!change || change->size() > room_.bytes) {
        return false;
    }
    const std::u16string& slot = slots_[newest_];
    const Room left{room_.start + change->size(), room_.bytes - change->size(), room_.changes - 1};
    const bool isThere = files_.size(slot) == std::exchange(room_, {}).start;
    if (!isThere || !files_.append(slot, *change)) {
        return false;
    }
    room_ = left;
    makeDurable(newest_);
    return true;
}

bool Recovery::write(const Snapshot& snapshot) {
    // Never overwrite the newest whole snapshot.
    const std::size_t slot = kept_ ? (newest_ + 1) % kSlots : newest_;
    const std::string encoded = encodeSnapshot(snapshot);
    const auto write = [&] { return files_.createFolder(folder_) && files_.write(slots_[slot], encoded, Flush::Now); };
    if (!write() && !write()) {
        return false;
    }
    makeDurable(slot);
    newest_ = slot;
    room_ = {encoded.size(), encoded.size() / 2, kMostChanges};
    return true;
}

void Recovery::makeDurable(std::size_t slot) {
    if (!std::exchange(isNamed_[slot], true)) {
        files_.flushFolderOf(slots_[slot]);
    }
    if (!std::exchange(isDurable_, true)) {
        files_.flushFolderOf(folder_);
    }
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
