// Where the program keeps its working copies.
#pragma once

#include <string>
#include <string_view>

// The executable's folder, or the folder `name` in the user's roaming application data where the former cannot be
// written. With its trailing separator.
std::u16string programFolder(std::u16string_view name);
