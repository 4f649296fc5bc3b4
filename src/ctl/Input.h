// The file that a command takes records from, or standard input.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Services.h"

// "-": standard input. `name` is what messages call it. Exit::Done, or a message has been written.
Exit readInput(Services& services, std::u16string_view input, std::u16string& name, std::string& bytes);
// The same of a text in UTF-8; its mark is accepted, and other bytes are refused.
Exit readInputText(Services& services, std::u16string_view input, std::u16string& name, std::u16string& text);
