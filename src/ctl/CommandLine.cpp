#include "ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <utility>

#include "ctl/Messages.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

constexpr const char* kSource = R"(a folder, a List.ini or User.ini, "receiver" or "backup:STAMP")";

// Arguments as typed; options are UTF-16.
struct Words {
    std::string folder;
    std::string list;
    std::string source;
    std::string newSource;
    std::string text;
    std::string kHz;
    std::string at;
    std::string format;
    std::string output;
    std::string input;
    std::string target;
    std::string day;
    std::string stamp;
    int first = 0;
};

const std::map<std::string, ListKind> kLists = {
    {"drm", ListKind::Drm}, {"am", ListKind::Am}, {"fm", ListKind::Fm}, {"fav", ListKind::Favourite}};
const std::map<std::string, ExportFormat> kExportFormats = {{"csv", ExportFormat::Csv},
                                                            {"json", ExportFormat::Json},
                                                            {"ini", ExportFormat::Ini},
                                                            {"html", ExportFormat::Html},
                                                            {"gqrx", ExportFormat::Gqrx}};
const std::map<std::string, ScheduleFormat> kScheduleFormats = {{"auto", ScheduleFormat::Auto},
                                                                {"nine", ScheduleFormat::NineLines},
                                                                {"eibi", ScheduleFormat::Eibi},
                                                                {"hfcc", ScheduleFormat::Hfcc}};
const std::map<std::string, int> kDays = {{"mo", 0}, {"tu", 1}, {"we", 2}, {"th", 3}, {"fr", 4}, {"sa", 5}, {"su", 6}};

template <typename Value>
CLI::IsMember oneOf(const std::map<std::string, Value>& values) {
    std::vector<std::string> names;
    names.reserve(values.size());
    for (const auto& [name, value] : values) {
        names.push_back(name);
    }
    return CLI::IsMember(names);
}

// "7325", "7325±5" or "7325+-5".
std::optional<FrequencyRange> frequencyRangeOf(std::string_view text) {
    constexpr std::string_view kSign = "\xC2\xB1";
    constexpr std::string_view kAsciiSign = "+-";
    std::size_t sign = text.find(kSign);
    if (sign == text.npos) {
        sign = text.find(kAsciiSign);  // has the length of the other sign
    }
    const auto isNumber = [](std::string_view number) {
        return !number.empty() && number.find_first_not_of("0123456789.") == number.npos &&
               std::count(number.begin(), number.end(), '.') <= 1 && number != ".";
    };
    const std::string_view middle = text.substr(0, sign);
    const std::string_view reach = sign == text.npos ? "0" : text.substr(sign + kSign.size());
    if (!isNumber(middle) || !isNumber(reach)) {
        return std::nullopt;
    }
    return FrequencyRange{leadingNumber(fromUtf8(middle)), leadingNumber(fromUtf8(reach))};
}

std::string checkFrequency(const std::string& text) {
    return frequencyRangeOf(text) ? "" : text + " is no frequency in kHz, such as 7325 or 7325+-5";
}

std::string checkTime(const std::string& text) {
    const bool isTime =
        text.size() == 4 && text.find_first_not_of("0123456789") == text.npos && text < "2400" && text.substr(2) < "60";
    return isTime ? "" : text + " is no time of day, such as 0630";
}

class Parser {
public:
    Parser() : app_("Shows, checks, converts and changes the station lists of a DRM receiver.", "halcyon_k7ctl") {
        // "/" begins a path on every system, but the library takes it for an option on Windows.
        app_.allow_windows_style_options(false);
        app_.set_version_flag("--version", HALCYON_VERSION);
        app_.add_option("--folder", words_.folder, "the folder of the working copies")->type_name("DIR");
        app_.add_flag("--json", options_.json, "print JSON");
        app_.add_flag("--dry-run", options_.dryRun, "print what would change, change nothing");
        app_.require_subcommand(1);
        app_.fallthrough();
        addReading();
        addConverting();
        addSchedule();
        addBackup();
        addReceiver();
    }

    std::variant<Options, CommandLineEnd> parse(std::vector<std::string> arguments) {
        std::reverse(arguments.begin(), arguments.end());  // the library expects reverse order
        try {
            app_.parse(std::move(arguments));
            if (!words_.source.empty() && !words_.list.empty() && !kLists.contains(words_.list)) {
                throw CLI::ValidationError("LIST", words_.list + " is none of drm, am, fm and fav");
            }
        } catch (const CLI::CallForAllHelp&) {
            return CommandLineEnd{app_.help("", CLI::AppFormatMode::All)};
        } catch (const CLI::CallForHelp&) {
            return CommandLineEnd{app_.help()};
        } catch (const CLI::CallForVersion&) {
            return CommandLineEnd{"halcyon_k7ctl " HALCYON_VERSION "\n"};
        } catch (const CLI::Error& error) {
            return CommandLineEnd{
                "halcyon_k7ctl: " + std::string(error.what()) + "\nRun with --help for more information.\n", true};
        }
        return takeOptions();
    }

private:
    CLI::App* command(CLI::App& parent, const char* name, const char* description, Verb verb) {
        CLI::App* const added = parent.add_subcommand(name, description);
        added->callback([this, verb] { options_.verb = verb; });
        return added;
    }

    void addSource(CLI::App& command) { command.add_option("SOURCE", words_.source, kSource); }

    void addReading() {
        CLI::App* const show = command(app_, "show", "print the lists as tables", Verb::Show);
        show->add_option("LIST", words_.list, "drm, am, fm or fav; or SOURCE");
        addSource(*show);

        CLI::App* const find = command(app_, "find", "search the DRM list", Verb::Find);
        find->add_option("TEXT", words_.text, "part of the programme or the target");
        addSource(*find);
        find->add_option("--khz", words_.kHz, "frequency N, or N+-M")->check(CLI::Validator(checkFrequency, "N[+-M]"));
        CLI::Option* const now = find->add_flag("--now", options_.now, "on the air now");
        find->add_option("--at", words_.at, "on the air at HHMM UTC")
            ->check(CLI::Validator(checkTime, "HHMM"))
            ->excludes(now);

        CLI::App* const check = command(app_, "check", "report every fault of the lists", Verb::Check);
        addSource(*check);

        CLI::App* const diff = command(app_, "diff", "compare two sources record by record", Verb::Diff);
        diff->add_option("OLD", words_.source, kSource)->required();
        diff->add_option("NEW", words_.newSource, kSource)->required();
        diff->add_flag("--ordered", options_.ordered, "report records that have moved, too");
    }

    void addConverting() {
        CLI::App* const exported = command(app_, "export", "write the lists in another format", Verb::Export);
        addSource(*exported);
        exported->add_option("--format", words_.format, "csv (the default), json, ini, html or gqrx")
            ->check(oneOf(kExportFormats));
        exported->add_option("-o,--output", words_.output, "the file to write; for ini the folder")->type_name("FILE");

        CLI::App* const import = command(app_, "import", "take records from a CSV file", Verb::Import);
        import->add_option("FILE", words_.input, "the file, or - for standard input")->required();
        import->add_option("--list", words_.list, "only this list; that of a file without a list column")
            ->check(oneOf(kLists));
        CLI::Option* const append = import->add_flag("--append", append_, "add to the lists (the default)");
        import->add_flag("--replace", options_.replace, "replace the lists")->excludes(append);
    }

    void addSchedule() {
        CLI::App* const schedule = app_.add_subcommand("schedule", "read a broadcast schedule");
        schedule->require_subcommand(1);
        addScheduleCommand(*schedule, "show", "print its records", Verb::ScheduleShow);
        addScheduleCommand(*schedule, "merge", "add the records that the DRM list lacks", Verb::ScheduleMerge);
        addScheduleCommand(*schedule, "replace", "rebuild the DRM list from it", Verb::ScheduleReplace);
    }

    void addScheduleCommand(CLI::App& parent, const char* name, const char* description, Verb verb) {
        CLI::App* const added = command(parent, name, description, verb);
        added->add_option("FILE", words_.input, "a file, an http address, or - for standard input")->required();
        added->add_option("--format", words_.format, "auto (the default), nine, eibi or hfcc")
            ->check(oneOf(kScheduleFormats));
        added->add_flag("--drm-only", options_.drmOnly, "leave analogue broadcasts out");
        added->add_option("--target", words_.target, "only targets that contain TEXT")->type_name("TEXT");
        added->add_option("--day", words_.day, "only what is on the air on this day: mo to su")->check(oneOf(kDays));
        added->add_option("--first", words_.first, "no more than N records")->check(CLI::Range(1, kMaxRecords));
    }

    void addBackup() {
        CLI::App* const backup = app_.add_subcommand("backup", "the copies of replaced list files");
        backup->require_subcommand(1);
        command(*backup, "list", "print their stamps", Verb::BackupList);
        for (const auto& [name, description, verb] :
             {std::tuple("show", "print the lists of a backup", Verb::BackupShow),
              std::tuple("restore", "make a backup the working copies again", Verb::BackupRestore)}) {
            command(*backup, name, description, verb)
                ->add_option("STAMP", words_.stamp, "as \"backup list\" prints it")
                ->required();
        }
    }

    void addReceiver() {
        CLI::App* const receiver = app_.add_subcommand("receiver", "the lists on the receiver");
        receiver->require_subcommand(1);
        command(*receiver, "status", "compare its lists with the working copies", Verb::ReceiverStatus);
        command(*receiver, "load", "replace the working copies by its lists", Verb::ReceiverLoad);
        command(*receiver, "save", "replace its lists by the working copies", Verb::ReceiverSave);
    }

    Options takeOptions() {
        if (!words_.folder.empty()) {
            options_.folder = fromUtf8(words_.folder);
        }
        takeList();
        options_.source = words_.stamp.empty() ? fromUtf8(words_.source) : u"backup:" + fromUtf8(words_.stamp);
        options_.newSource = fromUtf8(words_.newSource);
        options_.text = fromUtf8(words_.text);
        options_.output = fromUtf8(words_.output);
        options_.input = fromUtf8(words_.input);
        options_.target = fromUtf8(words_.target);
        options_.kHz = frequencyRangeOf(words_.kHz);
        if (!words_.at.empty()) {
            options_.at = fromUtf8(words_.at);
        }
        if (const auto format = kExportFormats.find(words_.format); format != kExportFormats.end()) {
            options_.exportFormat = format->second;
        }
        if (const auto format = kScheduleFormats.find(words_.format); format != kScheduleFormats.end()) {
            options_.scheduleFormat = format->second;
        }
        if (const auto day = kDays.find(words_.day); day != kDays.end()) {
            options_.day = day->second;
        }
        if (words_.first > 0) {
            options_.first = words_.first;
        }
        return std::move(options_);
    }

    // "show" accepts a list, a source or both.
    void takeList() {
        if (const auto list = kLists.find(words_.list); list != kLists.end()) {
            options_.list = list->second;
        } else if (words_.source.empty()) {
            words_.source = words_.list;
        }
    }

    CLI::App app_;
    Words words_;
    Options options_;
    bool append_ = false;  // has no effect: appending is the default
};

}  // namespace

std::variant<Options, CommandLineEnd> parseCommandLine(std::vector<std::string> arguments) {
    return Parser().parse(std::move(arguments));
}

Exit endCommandLine(Console& console, const CommandLineEnd& end) {
    if (end.isError) {
        console.writeError(end.text);
        return Exit::Usage;
    }
    return print(console, end.text);
}
