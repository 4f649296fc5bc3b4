#include "storage/recovery/Snapshot.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

// The format: mark, number, length of each file; for each file the number of its states, then length and checksum of
// each; the bytes of both files; checksum. Numbers have 64 bits, least significant byte first.
constexpr std::string_view kMark = "K7SNAP03";
// Marks of earlier versions. Both lack the states, and the first uses another checksum.
constexpr std::string_view kFirstMark = "K7SNAP01";
constexpr std::string_view kSecondMark = "K7SNAP02";
constexpr std::size_t kNumberSize = 8;
constexpr std::size_t kHeaderSize = kMark.size() + 3 * kNumberSize;
constexpr std::size_t kStateSize = 2 * kNumberSize;
constexpr std::uint64_t kUnknown = ~std::uint64_t{0};  // in place of a length

void appendNumber(std::string& to, std::uint64_t number) {
    for (std::size_t i = 0; i < kNumberSize; ++i) {
        to.push_back(static_cast<char>((number >> (8 * i)) & 0xFFU));
    }
}

std::uint64_t numberAt(std::string_view from, std::size_t offset) {
    std::uint64_t number = 0;
    for (std::size_t i = kNumberSize; i-- > 0;) {
        number = (number << 8U) | static_cast<unsigned char>(from[offset + i]);
    }
    return number;
}

constexpr std::uint64_t kSumStart = 14695981039346656037U;
constexpr std::uint64_t kSumFactor = 1099511628211U;

std::uint64_t firstChecksum(std::string_view bytes) {  // FNV-1a
    std::uint64_t sum = kSumStart;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * kSumFactor;
    }
    return sum;
}

// Eight bytes at a time, for speed with long lists. Zero padding is unambiguous, since the lengths are stored. Each
// step is invertible, so a single changed word always changes the sum; the shift mixes high bits into the low ones.
std::uint64_t checksum(std::string_view bytes) {
    std::uint64_t sum = kSumStart;
    const auto add = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * kSumFactor;
        sum ^= sum >> 32U;
    };
    for (; bytes.size() >= kNumberSize; bytes.remove_prefix(kNumberSize)) {
        add(numberAt(bytes, 0));
    }
    std::array<char, kNumberSize> last{};
    std::copy(bytes.begin(), bytes.end(), last.begin());
    add(numberAt({last.data(), last.size()}, 0));
    return sum;
}

std::uint64_t lengthOf(const std::optional<std::string>& bytes) { return bytes ? bytes->size() : kUnknown; }

std::optional<std::uint64_t> takeNumber(std::string_view& rest) {
    if (rest.size() < kNumberSize) {
        return std::nullopt;
    }
    const std::uint64_t number = numberAt(rest, 0);
    rest.remove_prefix(kNumberSize);
    return number;
}

// Each of the following takes one part off the front of `rest`; false if `rest` is too short.
bool take(std::string_view& rest, std::vector<FileState>& states) {
    const auto count = takeNumber(rest);
    if (!count || *count > rest.size() / kStateSize) {
        return false;
    }
    for (std::uint64_t i = 0; i < *count; ++i) {
        states.push_back({numberAt(rest, 0), numberAt(rest, kNumberSize)});
        rest.remove_prefix(kStateSize);
    }
    return true;
}

bool take(std::string_view& rest, std::uint64_t length, std::optional<std::string>& bytes) {
    if (length == kUnknown) {
        return true;
    }
    if (length > rest.size()) {
        return false;
    }
    bytes = rest.substr(0, static_cast<std::size_t>(length));
    rest.remove_prefix(static_cast<std::size_t>(length));
    return true;
}

}  // namespace

FileState FileState::of(std::string_view bytes) { return {bytes.size(), ::checksum(bytes)}; }

bool Snapshot::leaves(ListFileId file, const FileState& state) const {
    return (bytes[file] && FileState::of(*bytes[file]) == state) ||
           std::find(left[file].begin(), left[file].end(), state) != left[file].end();
}

std::string encodeSnapshot(const Snapshot& snapshot) {
    std::string file;
    std::size_t size = kHeaderSize + 3 * kNumberSize;
    for (const ListFileId id : kListFiles) {
        size += snapshot.left[id].size() * kStateSize + (snapshot.bytes[id] ? snapshot.bytes[id]->size() : 0);
    }
    file.reserve(size);
    file += kMark;
    appendNumber(file, snapshot.number);
    for (const ListFileId id : kListFiles) {
        appendNumber(file, lengthOf(snapshot.bytes[id]));
    }
    for (const ListFileId id : kListFiles) {
        appendNumber(file, snapshot.left[id].size());
        for (const FileState& state : snapshot.left[id]) {
            appendNumber(file, state.length);
            appendNumber(file, state.checksum);
        }
    }
    for (const ListFileId id : kListFiles) {
        if (snapshot.bytes[id]) {
            file += *snapshot.bytes[id];
        }
    }
    appendNumber(file, checksum(file));
    return file;
}

std::optional<Snapshot> decodeSnapshot(std::string_view file) {
    const bool isFirst = file.starts_with(kFirstMark);
    const bool hasStates = file.starts_with(kMark);
    if (file.size() < kHeaderSize + kNumberSize || (!isFirst && !hasStates && !file.starts_with(kSecondMark))) {
        return std::nullopt;
    }
    const std::string_view summed = file.substr(0, file.size() - kNumberSize);
    if (numberAt(file, summed.size()) != (isFirst ? firstChecksum(summed) : checksum(summed))) {
        return std::nullopt;
    }
    Snapshot snapshot;
    snapshot.number = numberAt(file, kMark.size());
    std::string_view rest = summed.substr(kHeaderSize);
    if (hasStates && (!take(rest, snapshot.left.list) || !take(rest, snapshot.left.user))) {
        return std::nullopt;
    }
    const bool whole = take(rest, numberAt(file, kMark.size() + kNumberSize), snapshot.bytes.list) &&
                       take(rest, numberAt(file, kMark.size() + 2 * kNumberSize), snapshot.bytes.user);
    return whole && rest.empty() ? std::optional(std::move(snapshot)) : std::nullopt;
}
