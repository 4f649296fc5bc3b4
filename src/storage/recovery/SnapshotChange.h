// What turns a snapshot into the next one. It follows that snapshot in its file, so that an edit of long lists need not
// write them as a whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "storage/recovery/Snapshot.h"

// In each file one part is replaced. nullopt if a file is known in only one of the snapshots.
std::optional<std::string> encodeChange(const Snapshot& from, const Snapshot& to);

// Takes a whole change of `snapshot` off the front of `file` and applies it. False, with both unchanged, if `file` does
// not begin with one.
bool applyChange(std::string_view& file, Snapshot& snapshot);
