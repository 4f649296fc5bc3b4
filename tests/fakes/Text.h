// UTF-16 made readable in test output.
#pragma once

#include <string>
#include <string_view>

// UTF-8; lone surrogates become "?".
std::string narrow(std::u16string_view text);
