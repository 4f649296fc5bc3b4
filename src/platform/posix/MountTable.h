// The system's table of mounted volumes, read without touching any of them.
#pragma once

#include <set>
#include <string>
#include <string_view>

// Mount points, in the order of their text, of the volumes that stand on a block device or on FUSE over a
// local device or image. `table` has the form of /proc/self/mountinfo.
std::set<std::string> diskMountPoints(std::string_view table);
