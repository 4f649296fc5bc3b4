// Where the program keeps its working copies.
#pragma once

#include <string>

// The executable's folder, or Halcyon_K7 in the user's roaming application data where the former cannot be
// written. With its trailing separator.
std::u16string programFolder();
