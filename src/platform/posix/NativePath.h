// Converts between paths of the portable code (UTF-16) and of the system (UTF-8).
#pragma once

#include <string>
#include <string_view>

// Empty, which names no file, if the path contains a lone surrogate.
std::string nativePath(std::u16string_view path);
// Empty if the bytes are not UTF-8.
std::u16string portablePath(std::string_view path);
