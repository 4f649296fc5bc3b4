// Which lists count at a start: those of a working copy, or what the program has kept of them (see Recovery).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "storage/lists/ListFileId.h"
#include "storage/recovery/Backup.h"
#include "storage/recovery/Snapshot.h"

class ListsAtStart {
public:
    // Neither has lists: the working copy is missing or cannot be read.
    enum class Source { Missing, Unreadable, WorkingCopy, Snapshot, Backup };

    // Reads the working copy at `path`, changes nothing. last: the snapshot found, or an empty one.
    ListsAtStart(ListFileId file, std::u16string_view path, const Snapshot& last, Files& files, Backup& backup);

    Source source() const { return source_; }
    // In UTF-8, or as the working copy is encoded if it counts.
    const std::optional<std::string>& lists() const { return lists_; }
    // Lists that do not count, in UTF-8: of the snapshot or of the working copy. To be backed up.
    const std::optional<std::string>& passedOver() const { return passedOver_; }
    // Of the working copy as found; that of a missing file is FileState(). nullopt: unreadable.
    const std::optional<FileState>& state() const { return state_; }

private:
    Source source_ = Source::Missing;
    std::optional<std::string> lists_;
    std::optional<std::string> passedOver_;
    std::optional<FileState> state_;
};
