// Reads the input file of a command, or standard input.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Services.h"

// "-": standard input. `name` is set for messages. Exit::Done, or a message was written.
Exit readInput(Services& services, std::u16string_view input, std::u16string& name, std::string& bytes);
// As readInput, for UTF-8; a byte-order mark is accepted, other encodings are rejected.
Exit readInputText(Services& services, std::u16string_view input, std::u16string& name, std::u16string& text);
