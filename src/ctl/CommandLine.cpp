#include "ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <utility>

#include "ctl/CommandValues.h"
#include "ctl/CommandWords.h"
#include "ctl/Messages.h"

namespace {

std::string inQuotes(std::string_view word) { return "\"" + std::string(word) + "\""; }

// The command or its second word that was recognised last; the program itself if none was.
const CLI::App& lastCommand(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : lastCommand(*chosen.front());
}

// "schedule merge"; empty for the program itself.
std::string nameOf(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    if (parent == nullptr) {
        return {};
    }
    const std::string before = nameOf(*parent);
    return before.empty() ? command.get_name() : before + " " + command.get_name();
}

std::string commandsOf(const CLI::App& app) {
    std::vector<std::string_view> names;
    for (const CLI::App* const command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    return enumeration(names);
}

// A word that belongs to nothing, or a command that lacks its second word.
std::string wrongWord(const CLI::App& app) {
    const CLI::App& command = lastCommand(app);
    const std::string name = nameOf(command);
    const std::vector<std::string> words = app.remaining(true);
    if (!words.empty() && words.front().size() > 1 && words.front().starts_with('-')) {
        return inQuotes(words.front()) + " is no option" + (name.empty() ? "" : " of " + inQuotes(name));
    }
    const bool hasCommands = !command.get_subcommands({}).empty();
    if (!words.empty() && !hasCommands) {
        return inQuotes(words.front()) + " is one word too many for " + inQuotes(name);
    }
    std::string text = words.empty() ? "a command is missing" : inQuotes(words.front()) + " is no command";
    text += name.empty() ? "" : " of " + inQuotes(name);
    return text + "; the commands are " + commandsOf(command);
}

// The operands of a command are required, its options are not.
std::string missingOperand(const CLI::App& command) {
    for (const CLI::Option* const option : command.get_options()) {
        if (option->get_required() && option->empty()) {
            return inQuotes(nameOf(command)) + " needs " + option->get_name(true);
        }
    }
    return {};
}

std::string reasonOf(const CLI::App& app, const CLI::Error& error) {
    std::string text = error.what();
    const auto code = static_cast<CLI::ExitCodes>(error.get_exit_code());
    if (code == CLI::ExitCodes::RequiredError) {
        const std::string operand = missingOperand(lastCommand(app));
        return operand.empty() ? wrongWord(app) : operand;
    }
    if (code == CLI::ExitCodes::ExtrasError) {
        return wrongWord(app);
    }
    if (code == CLI::ExitCodes::ArgumentMismatch) {
        const bool isMissing = text.find("missing") != text.npos;
        return text.substr(0, text.find(':')) + (isMissing ? " needs a value" : " may be given only once");
    }
    return text;
}

void addGlobalOptions(CLI::App& app, CommandWords& words) {
    // "/" begins a path on every system, but the library takes it for an option on Windows.
    app.allow_windows_style_options(false);
    app.set_help_flag("-h,--help", "print this help");
    app.set_version_flag("--version", HALCYON_VERSION, "print the version");
    app.add_option("--folder", words.folder, "the folder of the working copies")->type_name("DIR");
    app.add_flag("--json", words.flags.json, "print JSON");
    app.add_flag("--dry-run", words.flags.dryRun, "print what would change, change nothing");
    app.require_subcommand(1);
    app.fallthrough();
}

}  // namespace

std::variant<Options, CommandLineEnd> parseCommandLine(std::vector<std::string> arguments) {
    CLI::App app("Shows, checks, converts and changes the station lists of a DRM receiver.", "halcyon_k7ctl");
    CommandWords words;
    addGlobalOptions(app, words);
    addReadingCommands(app, words);
    addConvertingCommands(app, words);
    addScheduleCommands(app, words);
    addBackupCommands(app, words);
    addReceiverCommands(app, words);
    std::reverse(arguments.begin(), arguments.end());  // the library expects reverse order
    try {
        app.parse(std::move(arguments));
        if (!words.source.empty() && !words.list.empty()) {
            if (const std::string fault = checkName(kListNames, words.list); !fault.empty()) {
                throw CLI::ValidationError("LIST", fault);
            }
        }
    } catch (const CLI::CallForHelp&) {
        return CommandLineEnd{app.help()};
    } catch (const CLI::CallForVersion&) {
        return CommandLineEnd{"halcyon_k7ctl " HALCYON_VERSION "\n"};
    } catch (const CLI::Error& error) {
        return CommandLineEnd{"halcyon_k7ctl: " + reasonOf(app, error) + "\nRun with --help for more information.\n",
                              true};
    }
    return optionsOf(words);
}

Exit endCommandLine(Console& console, const CommandLineEnd& end) {
    if (end.isError) {
        console.writeError(end.text);
        return Exit::Usage;
    }
    return print(console, end.text);
}
