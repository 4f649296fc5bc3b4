#include "storage/recovery/ListsAtStart.h"

#include <algorithm>
#include <utility>

#include "storage/lists/ListContent.h"
#include "storage/lists/ListFile.h"
#include "storage/lists/WorkingCopies.h"

namespace {

// A start of the program leaves its working copies in UTF-16.
bool isListFile(std::string_view bytes) { return ListContent::hasSection(unconvertedWorkingCopy(bytes)); }

// The newest copy that is whole enough to be a list file.
std::optional<std::string> newestOf(Backup& backup, Files& files, std::u16string_view name) {
    auto copies = backup.copiesOf(name);
    std::reverse(copies.begin(), copies.end());
    for (const auto& copy : copies) {
        auto bytes = readWorkingCopy(backup.pathOf(copy), files).bytes;
        if (bytes && ListContent::hasSection(*bytes)) {
            return bytes;
        }
    }
    return std::nullopt;
}

}  // namespace

ListsAtStart::ListsAtStart(ListFileId file, std::u16string_view path, const Snapshot& last, Files& files,
                           Backup& backup) {
    FileRead read = readWorkingCopy(path, files);
    std::optional<std::string>& found = read.bytes;
    if (found || read.isMissing) {
        state_ = found ? FileState::of(*found) : FileState();
    }
    if (const auto& kept = last.bytes[file]) {
        const bool isAsLeft = state_ && last.leaves(file, *state_);
        const bool isDamaged = found ? !ListContent::hasSection(*found) : !state_;
        if (isAsLeft || isDamaged) {
            source_ = Source::Snapshot;
            lists_ = kept;
            if (found && !isAsLeft) {
                passedOver_ = unconvertedWorkingCopy(*found);
            }
            return;
        }
        passedOver_ = kept;
    }
    if (!found) {
        source_ = state_ ? Source::Missing : Source::Unreadable;
        return;
    }
    // Without a snapshot, as when the medium has lost the folder with them, the newest backup has the lists. A file
    // that cannot be read stays for a later start instead: a backup may be older.
    if (!last.bytes[file] && !isListFile(*found)) {
        if (auto copy = newestOf(backup, files, ListFile::nameOf(file))) {
            source_ = Source::Backup;
            lists_ = std::move(copy);
            passedOver_ = unconvertedWorkingCopy(*found);
            return;
        }
    }
    source_ = Source::WorkingCopy;
    lists_ = std::move(found);
}
