// Messages on standard error.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "platform/Console.h"

// Writes one line: "halcyon_k7ctl: " and the message.
void complain(Console& console, std::u16string_view message);
// The same with "warning: " before the message; the command continues.
void warn(Console& console, std::u16string_view message);
// Writes "FILE: why"; returns Exit::File.
Exit fileFault(Console& console, std::u16string_view path, std::u16string_view why);
// Writes to standard output; returns `result`, or Exit::File on failure.
Exit print(Console& console, std::string_view text, Exit result = Exit::Done);

// The text without control characters, which in the cells of a file could move the terminal's cursor or break a line.
std::u16string printable(std::u16string_view text);
void appendPrintable(std::u16string& line, std::u16string_view text);
