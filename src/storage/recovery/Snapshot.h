// Both working copies in one file, so that they are kept or lost together; a torn one is told by its checksum.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "storage/lists/WorkingCopies.h"

struct Snapshot {
    std::uint64_t number = 0;  // the higher, the newer
    WorkingCopyBytes bytes;
};

std::string encodeSnapshot(std::uint64_t number, const WorkingCopyBytes& bytes);
// nullopt unless `file` is a whole snapshot.
std::optional<Snapshot> decodeSnapshot(std::string_view file);
