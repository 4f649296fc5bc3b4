#include "storage/recovery/SnapshotChange.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "storage/recovery/SnapshotBytes.h"

namespace {

using namespace SnapshotBytes;

// The format: mark, number of the previous snapshot, number; start and length of the replaced part of each file and
// length of its replacement; states as in a snapshot; the replacements; padding and checksum.
constexpr std::string_view kMark = "K7CHANGE";

constexpr std::size_t kHeaderSize = kMark.size() + 8 * kNumberSize;
constexpr std::size_t kBlock = 4096;  // bytes compared in one step

struct Part {
    std::uint64_t start = 0;
    std::uint64_t removed = 0;
    std::string_view added;
};

std::size_t commonStart(std::string_view a, std::string_view b) {
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t same = 0;
    while (same + kBlock <= most && std::memcmp(a.data() + same, b.data() + same, kBlock) == 0) {
        same += kBlock;
    }
    while (same < most && a[same] == b[same]) {
        ++same;
    }
    return same;
}

std::size_t commonEnd(std::string_view a, std::string_view b) {
    const std::size_t most = std::min(a.size(), b.size());
    const char* const endOfA = a.data() + a.size();
    const char* const endOfB = b.data() + b.size();
    std::size_t same = 0;
    while (same + kBlock <= most && std::memcmp(endOfA - same - kBlock, endOfB - same - kBlock, kBlock) == 0) {
        same += kBlock;
    }
    while (same < most && *(endOfA - same - 1) == *(endOfB - same - 1)) {
        ++same;
    }
    return same;
}

Part partOf(std::string_view from, std::string_view to) {
    const std::size_t start = commonStart(from, to);
    from.remove_prefix(start);
    to.remove_prefix(start);
    const std::size_t end = commonEnd(from, to);
    return {start, from.size() - end, to.substr(0, to.size() - end)};
}

bool fits(const Part& part, const std::optional<std::string>& bytes) {
    const std::uint64_t size = bytes ? bytes->size() : 0;
    return part.start <= size && part.removed <= size - part.start && (bytes || part.added.empty());
}

void replace(std::optional<std::string>& bytes, const Part& part) {
    if (bytes) {
        bytes->replace(static_cast<std::size_t>(part.start), static_cast<std::size_t>(part.removed), part.added);
    }
}

}  // namespace

std::optional<std::string> encodeChange(const Snapshot& from, const Snapshot& to) {
    PerListFile<Part> parts;
    for (const ListFileId id : kListFiles) {
        if (from.bytes[id].has_value() != to.bytes[id].has_value()) {
            return std::nullopt;
        }
        if (to.bytes[id]) {
            parts[id] = partOf(*from.bytes[id], *to.bytes[id]);
        }
    }
    std::string change(kMark);
    append(change, from.number);
    append(change, to.number);
    for (const ListFileId id : kListFiles) {
        append(change, parts[id].start);
        append(change, parts[id].removed);
        append(change, parts[id].added.size());
    }
    append(change, to.left);
    for (const ListFileId id : kListFiles) {
        change += parts[id].added;
    }
    finish(change);
    return change;
}

bool applyChange(std::string_view& file, Snapshot& snapshot) {
    if (file.size() < kHeaderSize || !file.starts_with(kMark) || numberAt(file, kMark.size()) != snapshot.number) {
        return false;
    }
    std::string_view rest = file.substr(kMark.size() + kNumberSize);
    const std::uint64_t number = *takeNumber(rest);
    PerListFile<Part> parts;
    PerListFile<std::uint64_t> lengths;
    for (const ListFileId id : kListFiles) {
        parts[id].start = *takeNumber(rest);
        parts[id].removed = *takeNumber(rest);
        lengths[id] = *takeNumber(rest);
    }
    auto states = takeStates(rest);
    if (!states) {
        return false;
    }
    for (const ListFileId id : kListFiles) {
        const auto added = takeBytes(rest, lengths[id]);
        if (!added) {
            return false;
        }
        parts[id].added = *added;
    }
    const std::uint64_t size = finishedSize(file.size() - rest.size());
    const bool isWhole = size <= file.size() && SnapshotBytes::isWhole(file.substr(0, static_cast<std::size_t>(size)));
    if (!isWhole || !fits(parts.list, snapshot.bytes.list) || !fits(parts.user, snapshot.bytes.user)) {
        return false;
    }
    file.remove_prefix(static_cast<std::size_t>(size));
    snapshot.number = number;
    snapshot.left = std::move(*states);
    for (const ListFileId id : kListFiles) {
        replace(snapshot.bytes[id], parts[id]);
    }
    return true;
}
