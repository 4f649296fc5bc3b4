// Finds a unit of a UTF-16 text, a block at a time.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The position of the first unit from `start` on that matches; the size of the text if there is none. `matches`
// compares one unit with constants and has no branches, so that compilers vectorise the loop over a block.
template <class Matches>
std::size_t findUnit(std::u16string_view text, std::size_t start, Matches matches) {
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    constexpr std::size_t kBlock = 2 * kWord;
    static_assert(std::endian::native == std::endian::little);
    for (; start + kBlock <= text.size(); start += kBlock) {
        const char16_t* const block = text.data() + start;
        std::array<bool, kBlock> found;
        for (std::size_t i = 0; i < kBlock; ++i) {
            found[i] = matches(block[i]);
        }
        const auto [low, high] = std::bit_cast<std::array<std::uint64_t, 2>>(found);
        if (low != 0) {
            return start + static_cast<std::size_t>(std::countr_zero(low)) / 8;
        }
        if (high != 0) {
            return start + kWord + static_cast<std::size_t>(std::countr_zero(high)) / 8;
        }
    }
    const auto rest = text.substr(std::min(start, text.size()));
    return text.size() - static_cast<std::size_t>(rest.end() - std::find_if(rest.begin(), rest.end(), matches));
}
