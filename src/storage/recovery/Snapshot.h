// Both working copies in one file, so that they are kept or lost together; a checksum detects a torn file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "storage/lists/WorkingCopies.h"

// Identifies the content of a file.
struct FileState {
    // The length of a file that does not exist.
    static constexpr std::uint64_t kNoLength = ~std::uint64_t{0};
    std::uint64_t length = kNoLength;
    std::uint64_t checksum = 0;

    static FileState of(std::string_view bytes);
    friend bool operator==(const FileState&, const FileState&) = default;
};

using FileStates = PerListFile<std::vector<FileState>>;

struct Snapshot {
    std::uint64_t number = 0;  // the newest snapshot has the highest
    WorkingCopyBytes bytes;
    // The run may have left a working copy in any of these states, or with the bytes above.
    FileStates left;

    bool leaves(ListFileId file, const FileState& state) const;
};

std::string encodeSnapshot(const Snapshot& snapshot);

struct SnapshotFile {
    Snapshot snapshot;
    std::size_t size = 0;       // size in the file, in bytes
    bool takesChanges = false;  // changes may follow the snapshot in the file
};
// nullopt unless `file` begins with a whole snapshot.
std::optional<SnapshotFile> decodeSnapshot(std::string_view file);
