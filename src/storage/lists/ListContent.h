// Classifies the bytes of a list file without reading its records.
#pragma once

#include <string_view>

namespace ListContent {
// True if a line begins with "[". False for anything that is no list file, and for a list file in UTF-16.
bool hasSection(std::string_view bytes);
// True if a section has the name of a record, whatever the counts say.
bool hasRecord(std::string_view bytes);
// True for a record, and for content that is neither blank nor a list file: worth a backup.
bool isWorthKeeping(std::string_view bytes);
}  // namespace ListContent
