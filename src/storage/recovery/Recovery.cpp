#include "storage/recovery/Recovery.h"

#include <algorithm>
#include <utility>

#include "storage/files/SafeFile.h"
#include "storage/recovery/SnapshotChange.h"

Recovery::Recovery(std::u16string_view programFolder, Files& files)
    : folder_(std::u16string(programFolder) + u"Recovery"), files_(files) {
    const char16_t separator = programFolder.empty() ? u'/' : programFolder.back();
    slots_ = {folder_ + separator + u"Snapshot1", folder_ + separator + u"Snapshot2"};
    unread_ = folder_ + separator + u"Unread";
}

std::optional<Snapshot> Recovery::find() {
    std::optional<Snapshot> older;
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        const FileRead read = readWorkingCopy(slots_[slot], files_);
        isUnread_[slot] = !read.bytes && !read.isMissing;
        foundAll_ = foundAll_ && !isUnread_[slot];
        // A change that a power cut has torn can make the end of its file unreadable; what is before it was kept.
        const std::string& bytes = read.bytes ? *read.bytes : read.part;
        auto file = decodeSnapshot(bytes);
        if (!file) {
            continue;
        }
        Room room = readChanges(std::string_view(bytes).substr(file->size), *file);
        if (isUnread_[slot]) {
            room = {};
        }
        if (kept_ && file->snapshot.number <= kept_->number) {
            older = std::move(file->snapshot);
            continue;
        }
        older = std::exchange(kept_, std::move(file->snapshot));
        newest_ = slot;
        room_ = room;
        lastNumber_ = kept_->number;
    }
    if (older && kept_->number - older->number > kMostNumbers) {
        unseen_.push_back(std::move(*older));
    }
    if (!foundAll_) {
        lastNumber_ += 2 * kMostNumbers;
    }
    findUnread();
    return kept_;
}

void Recovery::findUnread() {
    const FileRead read = readWorkingCopy(unread_, files_);
    hasUnread_ = !read.bytes && !read.isMissing;
    if (auto file = read.bytes ? decodeSnapshot(*read.bytes) : std::nullopt) {
        readChanges(std::string_view(*read.bytes).substr(file->size), *file);
        unseen_.push_back(std::move(file->snapshot));
    }
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
    const std::uint64_t mostBytes = std::min<std::uint64_t>(room_.bytes, room_.start / kLongChange);
    if (!append(snapshot, mostBytes) && !write(snapshot) && !append(snapshot, kAnyLength)) {
        return false;
    }
    kept_ = std::move(snapshot);
    return true;
}

bool Recovery::append(Snapshot& snapshot, std::uint64_t mostBytes) {
    if (room_.changes == 0) {
        return false;
    }
    snapshot.number = ++lastNumber_;
    const auto change = encodeChange(*kept_, snapshot);
    if (!change || change->size() > mostBytes) {
        return false;
    }
    const std::u16string& slot = slots_[newest_];
    const Room left{room_.start + change->size(), room_.bytes - std::min(room_.bytes, change->size()),
                    room_.changes - 1};
    const bool isThere = files_.size(slot) == std::exchange(room_, {}).start;
    if (!isThere || !files_.append(slot, *change)) {
        return false;
    }
    room_ = left;
    makeDurable(newest_);
    return true;
}

bool Recovery::write(Snapshot& snapshot) {
    snapshot.number = ++lastNumber_;
    // Never overwrite a snapshot that was not read, nor, if there is a choice, the newest whole one.
    const std::size_t other = kept_ ? (newest_ + 1) % kSlots : newest_;
    const std::size_t slot = makeFree(other) ? other : (other + 1) % kSlots;
    const std::string encoded = encodeSnapshot(snapshot);
    if (!makeFree(slot) || !files_.createFolder(folder_)) {
        return false;
    }
    if (!files_.write(slots_[slot], encoded, Flush::Now)) {
        // It may be whole, but a start must not find what was reported as failed.
        files_.remove(slots_[slot]);
        isNamed_[slot] = false;
        return false;
    }
    makeDurable(slot);
    newest_ = slot;
    room_ = {encoded.size(), encoded.size() / 2, kMostChanges};
    return true;
}

bool Recovery::makeFree(std::size_t slot) {
    if (isUnread_[slot] && !files_.exists(unread_) && files_.rename(slots_[slot], unread_, Flush::Now)) {
        isUnread_[slot] = false;
        hasUnread_ = true;
    }
    return !isUnread_[slot];
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
    const std::size_t slot = (newest_ + 1) % kSlots;
    removeOld(slots_[slot], isUnread_[slot]);
    removeOld(unread_, hasUnread_);
    isNamed_[slot] = false;
}

void Recovery::removeOld(const std::u16string& path, bool isUnread) {
    const bool isReadableAgain = isUnread && files_.read(path).bytes;
    if (!isReadableAgain && files_.exists(path)) {
        files_.remove(path);
    }
}
