// Parses and checks the command line.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "ctl/Exit.h"
#include "ctl/Options.h"
#include "platform/Console.h"

// The program ends without a command: help or version were requested, or the arguments are wrong.
struct CommandLineEnd {
    std::string text;
    bool isError = false;
};

// arguments: UTF-8, without the program's name.
std::variant<Options, CommandLineEnd> parseCommandLine(std::vector<std::string> arguments);
// Prints the text to standard output or, after an error, to standard error.
Exit endCommandLine(Console& console, const CommandLineEnd& end);
