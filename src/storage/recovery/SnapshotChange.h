// The difference between a snapshot and the next one. It is appended to the snapshot's file, so that an edit of long
// lists does not write them completely.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "storage/recovery/Snapshot.h"

// Replaces one part of each file. nullopt if only one of the snapshots knows a file.
std::optional<std::string> encodeChange(const Snapshot& from, const Snapshot& to);

// Takes a whole change of `snapshot` off the front of `file` and applies it. False, with both unchanged, if `file` does
// not begin with one.
bool applyChange(std::string_view& file, Snapshot& snapshot);
