// What the bytes of a list file hold, without reading its records.
#pragma once

#include <string_view>

namespace ListContent {
// A line begins with a section's bracket. Without one the bytes are no list file, nor are they one in UTF-16.
bool hasSection(std::string_view bytes);
// A section has the name of a record, whatever the counts say.
bool hasRecord(std::string_view bytes);
// A record, or something that is no list file and not blank: worth a backup.
bool isWorthKeeping(std::string_view bytes);
}  // namespace ListContent
