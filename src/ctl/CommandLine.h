// The words of the command line, checked and turned into options.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "ctl/Exit.h"
#include "ctl/Options.h"
#include "platform/Console.h"

// The program is not to run: it was asked for its help or version, or the words are wrong.
struct CommandLineEnd {
    std::string text;
    bool isError = false;
};

// arguments: without the program's name, in UTF-8.
std::variant<Options, CommandLineEnd> parseCommandLine(std::vector<std::string> arguments);
// Prints the text where it belongs.
Exit endCommandLine(Console& console, const CommandLineEnd& end);
