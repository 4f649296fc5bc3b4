#include "ctl/Commands.h"

Exit runCommand(Services& services, const Options& options) {
    switch (options.verb) {
        case Verb::Show:
            return showLists(services, options);
        case Verb::Find:
            return findRecords(services, options);
        case Verb::Check:
            return checkLists(services, options);
        case Verb::Diff:
            return diffSources(services, options);
        case Verb::Export:
            return exportLists(services, options);
        case Verb::Import:
            return importCsv(services, options);
        case Verb::ScheduleShow:
            return showSchedule(services, options);
        case Verb::ScheduleMerge:
        case Verb::ScheduleReplace:
            return takeSchedule(services, options);
        case Verb::BackupList:
            return listBackups(services, options);
        case Verb::BackupShow:
            return showLists(services, options);
        case Verb::BackupRestore:
            return restoreBackup(services, options);
        case Verb::ReceiverStatus:
            return showReceiverStatus(services, options);
        case Verb::ReceiverLoad:
            return loadFromReceiver(services, options);
        case Verb::ReceiverSave:
            return saveToReceiver(services, options);
    }
    return Exit::Usage;
}
