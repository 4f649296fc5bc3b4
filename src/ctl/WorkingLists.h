// The working copies in the program's folder, as a start of the window would show them.
#pragma once

#include <optional>
#include <string>

#include "ctl/Services.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Backup.h"
#include "storage/recovery/Recovery.h"
#include "storage/recovery/Snapshot.h"

class WorkingLists {
public:
    explicit WorkingLists(Services& services);

    const WorkingCopies& paths() const { return paths_; }
    // By the rule of a start of the window: the snapshot in "Recovery" counts if a working copy is in a state in which
    // the run that wrote the snapshot may have left it, or damaged; otherwise the working copy counts. A running window
    // also keeps its lists in the snapshot. nullopt for a file that is missing or cannot be read; isUnreadable
    // distinguishes them.
    WorkingCopyBytes read();
    bool isUnreadable() const { return unreadable_; }

    // Claims the folder for this process. False, with a message, if the window has these lists open.
    bool claim();
    // Replaces both files or neither, and backs up the old ones. False, with a message, if nothing was changed. If the
    // process is killed meanwhile, the next start of the window finds either the old or the new lists.
    bool replace(const WorkingCopyBytes& bytes);

private:
    std::optional<std::string> read(ListFileId file, const Snapshot& last);
    void backUp(const WorkingCopyBytes& old);
    FileState stateOf(ListFileId file);
    // Writes a snapshot of the new lists, as a save of the window does: a start then finds them even if only one file
    // has been replaced. False, with a message, on failure.
    bool keepNew(Recovery& recovery, const WorkingCopyBytes& bytes);
    bool write(const WorkingCopyBytes& bytes);  // false, with a message, on failure
    // Writes a snapshot of the lists that count from now on. After a failed replacement these are the old ones for both
    // files, since a file that could not be put back may be old or new.
    static void keepResult(Recovery& recovery, WorkingCopyBytes present, bool replaced);

    Services& services_;
    WorkingCopies paths_;
    bool unreadable_ = false;
};
