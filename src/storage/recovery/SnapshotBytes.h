// The encoding of snapshots and their changes: 64-bit numbers, least significant byte first, and checksums.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "storage/recovery/Snapshot.h"

namespace SnapshotBytes {
inline constexpr std::size_t kNumberSize = 8;
inline constexpr std::uint64_t kUnknown = ~std::uint64_t{0};  // in place of the length of an unknown file

void append(std::string& to, std::uint64_t number);
// Appends the numbers of states and the states of both files.
void append(std::string& to, const FileStates& states);
std::uint64_t numberAt(std::string_view from, std::size_t offset);

// Each takes one part off the front of `rest`; nullopt if `rest` is too short.
std::optional<std::uint64_t> takeNumber(std::string_view& rest);
std::optional<FileStates> takeStates(std::string_view& rest);
std::optional<std::string_view> takeBytes(std::string_view& rest, std::uint64_t length);

std::uint64_t checksum(std::string_view bytes);

// Pads with zeros and appends the checksum. Snapshots and changes fill whole pages of a device, so that writing one
// rewrites no page of another.
void finish(std::string& file);
// The size after finish() of `length` bytes.
std::uint64_t finishedSize(std::uint64_t length);
// True if `finished` ends with its checksum.
bool isWhole(std::string_view finished);
}  // namespace SnapshotBytes
