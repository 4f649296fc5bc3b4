// The program's name: the title of its windows, its folder, what it calls itself to a server.
#pragma once

#include <string_view>

inline constexpr std::u16string_view kProgramTitle = u"Halcyon_K7";
