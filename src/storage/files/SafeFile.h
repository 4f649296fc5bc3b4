// Replacing a file so that whoever opens it finds a whole old or a whole new one, never a part.
// All failures are silent; the result says them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

// Where the new file is written before it takes the place of the old one.
std::u16string besideOf(std::u16string_view path);

// True when no file or folder has the name. Asked more than once: a device that is away for a moment seems empty, and
// what follows from a missing file - a new one, nothing to put back - would cost the one that is there.
bool isMissing(Files& files, std::u16string_view path);

// Removes what a run that was ended in the middle of a write may have left beside the file.
void removeLeftover(Files& files, std::u16string_view path);

// Writes beside the file, flushes, puts the new file in its place in one step. On failure the old file
// stays and nothing is left beside it.
bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes);

// The same for any reader, but when it reaches the device is left to the system: after a power cut the file may be
// the old one, the new one, empty or torn. Only for what can be made again then.
bool replaceFileUnflushed(Files& files, std::u16string_view path, std::string_view bytes);

struct NewFile {
    std::u16string path;
    std::string bytes;
};

// Replaces each of several files of one folder as replaceFile does, and flushes the folder once. False when one could
// not be replaced; the others are.
bool replaceFiles(Files& files, const std::vector<NewFile>& newFiles);
