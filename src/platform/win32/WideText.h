// UTF-16 as the system's wide characters and back. Both are 16 bits wide here, but distinct types.
#pragma once

#include <string>
#include <string_view>

inline std::wstring toWide(std::u16string_view text) { return {text.begin(), text.end()}; }
inline std::u16string fromWide(std::wstring_view text) { return {text.begin(), text.end()}; }
