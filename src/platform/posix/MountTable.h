// Parses the system's mount table; does not access the volumes.
#pragma once

#include <set>
#include <string>
#include <string_view>

// The mount points, sorted, of volumes on a block device, or on FUSE over a local device or image. `table` has the
// format of /proc/self/mountinfo.
std::set<std::string> diskMountPoints(std::string_view table);
