// The working copies in the program's folder, as a start of the window would show them.
#pragma once

#include "ctl/Services.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Backup.h"

class WorkingLists {
public:
    explicit WorkingLists(Services& services);

    const WorkingCopies& paths() const { return paths_; }
    // A run of the window that was cut off has left its lists in "Recovery", and a run that is on keeps them there:
    // they stand before the working copies, which hold an older state. A file that is missing or cannot be read has no
    // bytes; `unreadable` is then set for the latter.
    WorkingCopyBytes read();
    bool isUnreadable() const { return unreadable_; }

    // Claims the folder for this process. False, with a message: the window is open on these lists.
    bool claim();
    // Replaces both files or neither; what they held goes to "Backup". False, with a message: all is as it was.
    // A process that is killed meanwhile leaves either the old lists or the new ones to the next start of the window.
    bool replace(const WorkingCopyBytes& bytes);

private:
    void backUp(const WorkingCopyBytes& old);

    Services& services_;
    WorkingCopies paths_;
    bool unreadable_ = false;
};
