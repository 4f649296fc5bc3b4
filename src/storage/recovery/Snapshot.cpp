#include "storage/recovery/Snapshot.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "storage/recovery/SnapshotBytes.h"

namespace {

using namespace SnapshotBytes;

// The format: mark, number, length of each file; for each file the number of its states, then length and checksum of
// each; the bytes of both files; padding and checksum.
constexpr std::string_view kMark = "K7SNAP04";
// Marks of earlier versions. None has the padding, the first two lack the states, and the first uses another checksum.
constexpr std::string_view kFirstMark = "K7SNAP01";
constexpr std::string_view kSecondMark = "K7SNAP02";
constexpr std::string_view kThirdMark = "K7SNAP03";
constexpr std::size_t kHeaderSize = kMark.size() + 3 * kNumberSize;

std::uint64_t firstChecksum(std::string_view bytes) {  // FNV-1a
    std::uint64_t sum = 14695981039346656037U;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    return sum;
}

std::uint64_t lengthOf(const std::optional<std::string>& bytes) { return bytes ? bytes->size() : kUnknown; }

bool take(std::string_view& rest, std::uint64_t length, std::optional<std::string>& bytes) {
    if (length == kUnknown) {
        return true;
    }
    const auto taken = takeBytes(rest, length);
    if (taken) {
        bytes = *taken;
    }
    return taken.has_value();
}

struct Decoded {
    Snapshot snapshot;
    std::string_view rest;  // after the bytes of both files
};

std::optional<Decoded> decode(std::string_view file, bool hasStates) {
    Decoded decoded;
    decoded.rest = file.substr(kHeaderSize);
    decoded.snapshot.number = numberAt(file, kMark.size());
    if (hasStates) {
        auto states = takeStates(decoded.rest);
        if (!states) {
            return std::nullopt;
        }
        decoded.snapshot.left = std::move(*states);
    }
    const bool whole = take(decoded.rest, numberAt(file, kMark.size() + kNumberSize), decoded.snapshot.bytes.list) &&
                       take(decoded.rest, numberAt(file, kMark.size() + 2 * kNumberSize), decoded.snapshot.bytes.user);
    return whole ? std::optional(std::move(decoded)) : std::nullopt;
}

std::optional<Snapshot> decodeEarlier(std::string_view file) {
    const bool isFirst = file.starts_with(kFirstMark);
    const bool hasStates = file.starts_with(kThirdMark);
    if (file.size() < kHeaderSize + kNumberSize || (!isFirst && !hasStates && !file.starts_with(kSecondMark))) {
        return std::nullopt;
    }
    const std::string_view summed = file.substr(0, file.size() - kNumberSize);
    if (isFirst ? numberAt(file, summed.size()) != firstChecksum(summed) : !isWhole(file)) {
        return std::nullopt;
    }
    auto decoded = decode(summed, hasStates);
    return decoded && decoded->rest.empty() ? std::optional(std::move(decoded->snapshot)) : std::nullopt;
}

}  // namespace

FileState FileState::of(std::string_view bytes) { return {bytes.size(), SnapshotBytes::checksum(bytes)}; }

bool Snapshot::leaves(ListFileId file, const FileState& state) const {
    return (bytes[file] && FileState::of(*bytes[file]) == state) ||
           std::find(left[file].begin(), left[file].end(), state) != left[file].end();
}

std::string encodeSnapshot(const Snapshot& snapshot) {
    std::size_t size = kHeaderSize;
    for (const ListFileId id : kListFiles) {
        size +=
            (2 * snapshot.left[id].size() + 1) * kNumberSize + (snapshot.bytes[id] ? snapshot.bytes[id]->size() : 0);
    }
    std::string file;
    file.reserve(static_cast<std::size_t>(finishedSize(size)));
    file += kMark;
    append(file, snapshot.number);
    for (const ListFileId id : kListFiles) {
        append(file, lengthOf(snapshot.bytes[id]));
    }
    append(file, snapshot.left);
    for (const ListFileId id : kListFiles) {
        if (snapshot.bytes[id]) {
            file += *snapshot.bytes[id];
        }
    }
    finish(file);
    return file;
}

std::optional<SnapshotFile> decodeSnapshot(std::string_view file) {
    if (file.size() < kHeaderSize || !file.starts_with(kMark)) {
        auto earlier = decodeEarlier(file);
        return earlier ? std::optional(SnapshotFile{std::move(*earlier), file.size(), false}) : std::nullopt;
    }
    auto decoded = decode(file, true);
    if (!decoded) {
        return std::nullopt;
    }
    const std::uint64_t size = finishedSize(file.size() - decoded->rest.size());
    if (size > file.size() || !isWhole(file.substr(0, static_cast<std::size_t>(size)))) {
        return std::nullopt;
    }
    return SnapshotFile{std::move(decoded->snapshot), static_cast<std::size_t>(size), true};
}
