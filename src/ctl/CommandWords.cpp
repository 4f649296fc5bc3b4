#include "ctl/CommandWords.h"

#include <CLI/CLI.hpp>

#include "ctl/CommandValues.h"
#include "ctl/Sources.h"
#include "storage/text/Utf8.h"

namespace {

constexpr const char* kSource = R"(a folder, a List.ini or User.ini, "receiver" or "backup:STAMP")";

CLI::App& command(CLI::App& parent, const char* name, const char* description, Verb verb, CommandWords& words) {
    CLI::App& added = *parent.add_subcommand(name, description);
    added.callback([&words, verb] { words.flags.verb = verb; });
    return added;
}

template <typename Names>
CLI::Validator oneOf(const Names& names) {
    return CLI::Validator([&names](const std::string& word) { return checkName(names, word); }, "");
}

void addScheduleCommand(CLI::App& schedule, const char* name, const char* description, Verb verb, CommandWords& words) {
    CLI::App& added = command(schedule, name, description, verb, words);
    added.add_option("FILE", words.input, "a file, an http address, or - for standard input")->required();
    added.add_option("--format", words.format, "auto (the default), nine, eibi or hfcc")
        ->type_name("FORMAT")
        ->check(oneOf(kScheduleFormats));
    added.add_flag("--drm-only", words.flags.drmOnly, "leave analogue broadcasts out");
    added.add_option("--target", words.target, "only targets that contain TEXT")->type_name("TEXT");
    added.add_option("--day", words.day, "only what is on the air on this day: mo to su")
        ->type_name("DAY")
        ->check(oneOf(kDayNames));
    added.add_option("--first", words.first, "no more than N records")
        ->type_name("N")
        ->check(CLI::Validator(checkFirst, ""));
}

}  // namespace

void addReadingCommands(CLI::App& app, CommandWords& words) {
    CLI::App& show = command(app, "show", "print the lists as tables", Verb::Show, words);
    show.add_option("LIST", words.list, "drm, am, fm or fav; or SOURCE");
    show.add_option("SOURCE", words.source, kSource);

    CLI::App& find = command(app, "find", "search the DRM list", Verb::Find, words);
    find.add_option("TEXT", words.text, "part of the programme or the target");
    find.add_option("SOURCE", words.source, kSource);
    find.add_option("--khz", words.kHz, "frequency N, or N+-M")
        ->type_name("N[+-M]")
        ->check(CLI::Validator(checkFrequency, ""));
    CLI::Option* const now = find.add_flag("--now", words.flags.now, "on the air now");
    find.add_option("--at", words.at, "on the air at HHMM UTC")
        ->type_name("HHMM")
        ->check(CLI::Validator(checkTime, ""))
        ->excludes(now);

    command(app, "check", "report every fault of the lists", Verb::Check, words)
        .add_option("SOURCE", words.source, kSource);

    CLI::App& diff = command(app, "diff", "compare two sources record by record", Verb::Diff, words);
    diff.add_option("OLD", words.source, kSource)->required();
    diff.add_option("NEW", words.newSource, kSource)->required();
    diff.add_flag("--ordered", words.flags.ordered, "report records that have moved, too");
}

void addConvertingCommands(CLI::App& app, CommandWords& words) {
    CLI::App& exported = command(app, "export", "write the lists in another format", Verb::Export, words);
    exported.add_option("SOURCE", words.source, kSource);
    exported.add_option("--format", words.format, "csv (the default), json, ini, html or gqrx")
        ->type_name("FORMAT")
        ->check(oneOf(kExportFormats));
    exported.add_option("-o,--output", words.output, "the file to write; for ini the folder")->type_name("FILE");

    CLI::App& import = command(app, "import", "take records from a CSV file", Verb::Import, words);
    import.add_option("FILE", words.input, "the file, or - for standard input")->required();
    import.add_option("--list", words.list, "only this list; that of a file without a list column")
        ->type_name("LIST")
        ->check(oneOf(kListNames));
    CLI::Option* const append = import.add_flag("--append", words.append, "add to the lists (the default)");
    import.add_flag("--replace", words.flags.replace, "replace the lists")->excludes(append);
}

void addScheduleCommands(CLI::App& app, CommandWords& words) {
    CLI::App& schedule = *app.add_subcommand("schedule", "read a broadcast schedule")->require_subcommand(1);
    addScheduleCommand(schedule, "show", "print its records", Verb::ScheduleShow, words);
    addScheduleCommand(schedule, "merge", "add the records that the DRM list lacks", Verb::ScheduleMerge, words);
    addScheduleCommand(schedule, "replace", "rebuild the DRM list from it", Verb::ScheduleReplace, words);
}

void addBackupCommands(CLI::App& app, CommandWords& words) {
    constexpr const char* kStamp = "as \"backup list\" prints it";
    CLI::App& backup = *app.add_subcommand("backup", "the copies of replaced list files")->require_subcommand(1);
    command(backup, "list", "print their stamps", Verb::BackupList, words);
    command(backup, "show", "print the lists of a backup", Verb::BackupShow, words)
        .add_option("STAMP", words.stamp, kStamp)
        ->required();
    command(backup, "restore", "make a backup the working copies again", Verb::BackupRestore, words)
        .add_option("STAMP", words.stamp, kStamp)
        ->required();
}

void addReceiverCommands(CLI::App& app, CommandWords& words) {
    CLI::App& receiver = *app.add_subcommand("receiver", "the lists on the receiver")->require_subcommand(1);
    command(receiver, "status", "compare its lists with the working copies", Verb::ReceiverStatus, words);
    command(receiver, "load", "replace the working copies by its lists", Verb::ReceiverLoad, words);
    command(receiver, "save", "replace its lists by the working copies", Verb::ReceiverSave, words);
}

Options optionsOf(const CommandWords& words) {
    Options options = words.flags;
    if (!words.folder.empty()) {
        options.folder = fromUtf8(words.folder);
    }
    options.list = valueOf(kListNames, words.list);
    // "show" accepts a list, a source or both.
    options.isListOrSource = !options.list && !words.list.empty();
    options.source = fromUtf8(options.isListOrSource ? words.list : words.source);
    if (options.verb == Verb::BackupShow || options.verb == Verb::BackupRestore) {
        options.source = std::u16string(kBackupPrefix) + fromUtf8(words.stamp);
    }
    options.newSource = fromUtf8(words.newSource);
    options.text = fromUtf8(words.text);
    options.output = fromUtf8(words.output);
    options.input = fromUtf8(words.input);
    options.target = fromUtf8(words.target);
    options.kHz = frequencyRangeOf(words.kHz);
    if (!words.at.empty()) {
        options.at = fromUtf8(words.at);
    }
    options.exportFormat = valueOf(kExportFormats, words.format).value_or(ExportFormat::Csv);
    options.scheduleFormat = valueOf(kScheduleFormats, words.format).value_or(ScheduleFormat::Auto);
    options.day = valueOf(kDayNames, words.day);
    options.first = firstOf(words.first);
    return options;
}
