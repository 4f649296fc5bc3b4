// Writes to the receiver's disk, which is small, can be unplugged at any time and may lose data after accepting it.
#pragma once

#include <vector>

#include "platform/Files.h"
#include "storage/files/SafeFile.h"

// Replaces all of the files, which are on one disk, or none. Each new file is written next to the old one, flushed and
// read back from the device; only then are the new files renamed over the old ones, and read back again. On any failure
// the old bytes are restored.
// Without room for both copies, or for the names of temporary files, the files are replaced one after the other: by
// rename as far as there is room for one copy and its name, else in place, if the new content surely fits.
// An old file that cannot be read is replaced by rename, never in place: its content could not be restored.
// False, and nothing is shown, if the old files remain (or are restored, as far as the disk allows).
bool replaceVerified(Files& files, const std::vector<NewFile>& newFiles);
