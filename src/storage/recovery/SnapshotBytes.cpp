#include "storage/recovery/SnapshotBytes.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

using namespace SnapshotBytes;

constexpr std::size_t kPage = 4096;
constexpr std::size_t kStateSize = 2 * kNumberSize;

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

}  // namespace

void SnapshotBytes::append(std::string& to, std::uint64_t number) {
    for (std::size_t i = 0; i < kNumberSize; ++i) {
        to.push_back(static_cast<char>((number >> (8 * i)) & 0xFFU));
    }
}

void SnapshotBytes::append(std::string& to, const FileStates& states) {
    for (const ListFileId file : kListFiles) {
        append(to, states[file].size());
        for (const FileState& state : states[file]) {
            append(to, state.length);
            append(to, state.checksum);
        }
    }
}

std::uint64_t SnapshotBytes::numberAt(std::string_view from, std::size_t offset) {
    std::uint64_t number = 0;
    for (std::size_t i = kNumberSize; i-- > 0;) {
        number = (number << 8U) | static_cast<unsigned char>(from[offset + i]);
    }
    return number;
}

std::optional<std::uint64_t> SnapshotBytes::takeNumber(std::string_view& rest) {
    if (rest.size() < kNumberSize) {
        return std::nullopt;
    }
    const std::uint64_t number = numberAt(rest, 0);
    rest.remove_prefix(kNumberSize);
    return number;
}

std::optional<FileStates> SnapshotBytes::takeStates(std::string_view& rest) {
    FileStates states;
    return take(rest, states.list) && take(rest, states.user) ? std::optional(std::move(states)) : std::nullopt;
}

std::optional<std::string_view> SnapshotBytes::takeBytes(std::string_view& rest, std::uint64_t length) {
    if (length > rest.size()) {
        return std::nullopt;
    }
    const std::string_view taken = rest.substr(0, static_cast<std::size_t>(length));
    rest.remove_prefix(taken.size());
    return taken;
}

// Eight bytes at a time, for speed with long lists. Zero padding is unambiguous, since the lengths are stored. Each
// step is invertible, so a single changed word always changes the sum; the shift mixes high bits into the low ones.
std::uint64_t SnapshotBytes::checksum(std::string_view bytes) {
    std::uint64_t sum = 14695981039346656037U;
    const auto add = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * 1099511628211U;
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

std::uint64_t SnapshotBytes::finishedSize(std::uint64_t length) {
    return (length + kNumberSize + kPage - 1) / kPage * kPage;
}

void SnapshotBytes::finish(std::string& file) {
    file.resize(static_cast<std::size_t>(finishedSize(file.size())) - kNumberSize);
    append(file, checksum(file));
}

bool SnapshotBytes::isWhole(std::string_view finished) {
    if (finished.size() < kNumberSize) {
        return false;
    }
    const std::string_view summed = finished.substr(0, finished.size() - kNumberSize);
    return numberAt(finished, summed.size()) == checksum(summed);
}
