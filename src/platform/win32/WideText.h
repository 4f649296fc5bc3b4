// Converts between UTF-16 and the system's wide characters, which are distinct types of the same size.
#pragma once

#include <string>
#include <string_view>

inline std::wstring toWide(std::u16string_view text) { return {text.begin(), text.end()}; }
inline std::u16string fromWide(std::wstring_view text) { return {text.begin(), text.end()}; }
