// The beginning and the end of every command that changes the lists.
#pragma once

#include "ctl/Exit.h"
#include "ctl/Lists.h"
#include "ctl/Options.h"
#include "ctl/Services.h"
#include "ctl/WorkingLists.h"

// Loads the working copies into `lists`. Without --dry-run the folder is claimed first, so that nothing changes before
// storeLists. Exit::Done, or a message was written.
Exit openForChange(Services& services, const Options& options, WorkingLists& working, Lists& lists);
// The same for a command that starts from the present lists: copies them to `after`.
Exit openForChange(Services& services, const Options& options, WorkingLists& working, Lists& before, Lists& after);

// Replaces the working copies by `after` and prints the new number of records of each changed list. With --dry-run
// prints the differences and changes nothing.
Exit storeLists(Services& services, const Options& options, WorkingLists& working, const Lists& before, Lists& after);

// Prints "DRM: 2 -> 3 records" for each list.
Exit printCounts(Services& services, const Lists& before, const Lists& after);
