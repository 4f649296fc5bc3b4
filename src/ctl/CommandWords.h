// The words of a command line as typed, and the commands that take them.
#pragma once

#include <string>

#include "ctl/Options.h"

namespace CLI {
class App;
}

// The parser of the command line writes into this object.
struct CommandWords {
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
    std::string first;
    bool append = false;  // has no effect: appending is the default
    Options flags;        // the verb and the options without a value
};

// Each adds its commands to `app`. `words` outlives it.
void addReadingCommands(CLI::App& app, CommandWords& words);
void addConvertingCommands(CLI::App& app, CommandWords& words);
void addScheduleCommands(CLI::App& app, CommandWords& words);
void addBackupCommands(CLI::App& app, CommandWords& words);
void addReceiverCommands(CLI::App& app, CommandWords& words);

// The options that checked words mean.
Options optionsOf(const CommandWords& words);
