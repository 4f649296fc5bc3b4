// What the program says on standard error.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "platform/Console.h"

// One line: "halcyon_k7ctl: " and the message.
void complain(Console& console, std::u16string_view message);
// The same with "warning: "; the command continues.
void warn(Console& console, std::u16string_view message);
// "FILE: why", and Exit::File.
Exit fileFault(Console& console, std::u16string_view path, std::u16string_view why);
// Writes to standard output; a failure makes it Exit::File.
Exit print(Console& console, std::string_view text, Exit result = Exit::Done);

// The text with control characters replaced, so that the cells of a file can neither move the cursor of a terminal nor
// break a line.
std::u16string printable(std::u16string_view text);
