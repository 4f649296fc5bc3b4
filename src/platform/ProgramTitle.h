// The program's name: title of its windows, name of its folder, HTTP user agent.
#pragma once

#include <string_view>

inline constexpr std::u16string_view kProgramTitle = u"Halcyon_K7";
