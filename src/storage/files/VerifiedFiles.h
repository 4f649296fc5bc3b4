// Writing to the receiver's disk, which is small, can be pulled out at any time and may lose what it was given.
#pragma once

#include <vector>

#include "platform/Files.h"
#include "storage/files/SafeFile.h"

// Replaces all of the files or none, all on one disk: each is written beside its old one, flushed and read back from
// the device; only then are they put in place, and read back again. On any failure the old bytes come back.
// Where the disk has no room for both, a file is overwritten in place, provided that it surely fits.
// An old file that cannot be read is replaced by rename, never in place: there is nothing in it to put back.
// False, silently, when the old files are there still (or again, as far as the disk allows).
bool replaceVerified(Files& files, const std::vector<NewFile>& newFiles);
