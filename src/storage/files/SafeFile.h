// Replaces files so that a reader finds a whole old or a whole new one, never a part.
// All failures are silent; the result says them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

// Where the new file is written before it takes the place of the old one.
std::u16string besideOf(std::u16string_view path);

// Removes the temporary file that an interrupted run may have left beside the file.
void removeLeftover(Files& files, std::u16string_view path);

// Writes a temporary file beside the file, flushes it, and renames it over the file. On failure the old file stays and
// nothing is left beside it.
// With Flush::Later any reader finds the new file, but after a power cut the file may be the old one, the new one,
// empty or torn. Only for what can be made again then.
bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes, Flush flush = Flush::Now);

struct NewFile {
    std::u16string path;
    std::string bytes;
};

// Replaces each of several files of one folder as replaceFile does, and flushes the folder once. False when one could
// not be replaced; the others are.
bool replaceFiles(Files& files, const std::vector<NewFile>& newFiles);
