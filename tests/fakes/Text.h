// Converts UTF-16 to readable test output.
#pragma once

#include <string>
#include <string_view>

// UTF-8; lone surrogates become "?".
std::string narrow(std::u16string_view text);
