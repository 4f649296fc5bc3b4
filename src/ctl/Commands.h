// The commands of the program, each in a file of its own.
#pragma once

#include "ctl/Exit.h"
#include "ctl/Options.h"
#include "ctl/Services.h"

class Lists;

Exit runCommand(Services& services, const Options& options);

Exit showLists(Services& services, const Options& options);
Exit findRecords(Services& services, const Options& options);
Exit checkLists(Services& services, const Options& options);
Exit diffSources(Services& services, const Options& options);
Exit exportLists(Services& services, const Options& options);
Exit importCsv(Services& services, const Options& options);
Exit showSchedule(Services& services, const Options& options);
Exit takeSchedule(Services& services, const Options& options);
Exit listBackups(Services& services, const Options& options);
Exit restoreBackup(Services& services, const Options& options);
Exit showReceiverStatus(Services& services, const Options& options);
Exit loadFromReceiver(Services& services, const Options& options);
Exit saveToReceiver(Services& services, const Options& options);

// Prints the differences as "diff" and --dry-run do.
Exit printDiff(Services& services, const Options& options, const Lists& before, const Lists& after);
