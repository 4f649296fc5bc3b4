// The parsed command line.
#pragma once

#include <optional>
#include <string>

#include "storage/stations/ListKind.h"

enum class Verb {
    Show,
    Find,
    Check,
    Diff,
    Export,
    Import,
    ScheduleShow,
    ScheduleMerge,
    ScheduleReplace,
    BackupList,
    BackupShow,
    BackupRestore,
    ReceiverStatus,
    ReceiverLoad,
    ReceiverSave
};
enum class ExportFormat { Csv, Json, Ini, Html, Gqrx };
enum class ScheduleFormat { Auto, NineLines, Eibi, Hfcc };

struct FrequencyRange {
    double middle = 0;  // kHz
    double reach = 0;   // kHz in either direction
};

// Whether the command, without --dry-run, writes in the folder of the working copies.
constexpr bool isChange(Verb verb) {
    switch (verb) {
        case Verb::Import:
        case Verb::ScheduleMerge:
        case Verb::ScheduleReplace:
        case Verb::BackupRestore:
        case Verb::ReceiverLoad:
        case Verb::ReceiverSave:
            return true;
        default:
            return false;
    }
}

struct Options {
    // Global options
    Verb verb = Verb::Show;
    std::optional<std::u16string> folder;
    bool json = false;
    bool dryRun = false;
    bool isListOrSource = false;  // show: `source` may have been meant as a list

    bool isReadOnly() const { return dryRun || !isChange(verb); }

    std::u16string source;  // empty: the working copies; for backup commands: the backup
    std::optional<ListKind> list;
    // find
    std::u16string text;
    std::optional<FrequencyRange> kHz;
    bool now = false;
    std::optional<std::u16string> at;  // hhmm
    // diff
    std::u16string newSource;
    bool ordered = false;
    // export
    ExportFormat exportFormat = ExportFormat::Csv;
    std::u16string output;  // empty: standard output
    // import, schedule: file or address; "-": standard input
    std::u16string input;
    bool replace = false;
    // schedule
    ScheduleFormat scheduleFormat = ScheduleFormat::Auto;
    bool drmOnly = false;
    std::u16string target;
    std::optional<int> day;  // 0: Monday
    std::optional<int> first;
};
