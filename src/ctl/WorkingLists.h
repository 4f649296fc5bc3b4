// The working copies in the program's folder, as a start of the window would show them.
#pragma once

#include <optional>
#include <string>

#include "ctl/Services.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Backup.h"
#include "storage/recovery/Snapshot.h"

class WorkingLists {
public:
    explicit WorkingLists(Services& services);

    const WorkingCopies& paths() const { return paths_; }
    // By the rule of that start: the snapshot in "Recovery" counts as long as a working copy is as the run that wrote
    // the snapshot may have left it, or is damaged; one that somebody else has changed wins. A run of the window that
    // is on keeps its lists there, too. A file that is missing or cannot be read has no bytes; isUnreadable says the
    // latter.
    WorkingCopyBytes read();
    bool isUnreadable() const { return unreadable_; }

    // Claims the folder for this process. False, with a message: the window is open on these lists.
    bool claim();
    // Replaces both files or neither; what they held goes to "Backup". False, with a message: all is as it was.
    // A process that is killed meanwhile leaves either the old lists or the new ones to the next start of the window.
    bool replace(const WorkingCopyBytes& bytes);

private:
    std::optional<std::string> read(ListFileId file, const Snapshot& last);
    void backUp(const WorkingCopyBytes& old);
    FileState stateOf(ListFileId file);

    Services& services_;
    WorkingCopies paths_;
    bool unreadable_ = false;
};
