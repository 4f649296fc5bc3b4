#include "storage/recovery/Snapshot.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

// Mark, number, length of each file, the bytes of both, checksum. Numbers are 64 bits, least significant byte first.
constexpr std::string_view kMark = "K7SNAP02";
constexpr std::string_view kFirstMark = "K7SNAP01";  // the same but for the checksum; of a run before an update
constexpr std::size_t kNumberSize = 8;
constexpr std::size_t kHeaderSize = kMark.size() + 3 * kNumberSize;
constexpr std::uint64_t kUnknown = ~std::uint64_t{0};  // in the place of a length

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

// Eight bytes at a time, for long lists; the last ones, padded with zeros, are told from others by the lengths. Each
// step can be undone, so one changed word always changes the sum; the shift carries its high bits on to the low ones.
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

// Takes the file of that length off the front of `rest`; false when `rest` is too short.
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

std::string encodeSnapshot(std::uint64_t number, const WorkingCopyBytes& bytes) {
    std::string file;
    file.reserve(kHeaderSize + (bytes.list ? bytes.list->size() : 0) + (bytes.user ? bytes.user->size() : 0) +
                 kNumberSize);
    file += kMark;
    appendNumber(file, number);
    appendNumber(file, lengthOf(bytes.list));
    appendNumber(file, lengthOf(bytes.user));
    for (const auto* const content : {&bytes.list, &bytes.user}) {
        if (*content) {
            file += **content;
        }
    }
    appendNumber(file, checksum(file));
    return file;
}

std::optional<Snapshot> decodeSnapshot(std::string_view file) {
    const bool isFirst = file.starts_with(kFirstMark);
    if (file.size() < kHeaderSize + kNumberSize || (!isFirst && !file.starts_with(kMark))) {
        return std::nullopt;
    }
    const std::string_view summed = file.substr(0, file.size() - kNumberSize);
    if (numberAt(file, summed.size()) != (isFirst ? firstChecksum(summed) : checksum(summed))) {
        return std::nullopt;
    }
    Snapshot snapshot;
    snapshot.number = numberAt(file, kMark.size());
    std::string_view rest = summed.substr(kHeaderSize);
    const bool whole = take(rest, numberAt(file, kMark.size() + kNumberSize), snapshot.bytes.list) &&
                       take(rest, numberAt(file, kMark.size() + 2 * kNumberSize), snapshot.bytes.user);
    return whole && rest.empty() ? std::optional(std::move(snapshot)) : std::nullopt;
}
