// Replacing a file so that whoever opens it finds a whole old or a whole new one, never a part.
// All failures are silent; the result says them.
#pragma once

#include <string_view>

#include "platform/Files.h"

// Removes what a run that was ended in the middle of a write may have left beside the file.
void removeLeftover(Files& files, std::u16string_view path);

// Writes beside the file, flushes, puts the new file in its place in one step. On failure the old file
// stays and nothing is left beside it.
bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes);

// The same for the receiver's disk, which is small and can be pulled out at any time: what has been written is read
// back from the device before it replaces the old file and again after that. Where the disk has no room for both,
// the file is overwritten in place. On failure the old bytes are put back.
bool replaceVerified(Files& files, std::u16string_view path, std::string_view bytes);
