// Finds units of a UTF-16 text, a block at a time.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

// `Matches` compares one unit with constants and has no branches, so that compilers vectorise the loop over a block.
template <class Matches>
class UnitFinder {
public:
    UnitFinder(std::u16string_view text, std::size_t start, Matches matches)
        : text_(text), matches_(matches), at_(start), end_(start) {}

    // The position of the next unit that matches; the size of the text if there is none.
    std::size_t next() {
        while (found_ == 0) {
            if (later_ != 0) {
                found_ = later_;
                later_ = 0;
                at_ += kWord;
            } else if (end_ < text_.size()) {
                readBlock();
            } else {
                return text_.size();
            }
        }
        const std::size_t position = at_ + static_cast<std::size_t>(std::countr_zero(found_)) / 8;
        found_ &= found_ - 1;
        return std::min(position, text_.size());  // the last block is padded with NULs
    }

private:
    static constexpr std::size_t kWord = sizeof(std::uint64_t);
    static constexpr std::size_t kBlock = 2 * kWord;
    static_assert(std::endian::native == std::endian::little);

    void readBlock() {
        at_ = end_;
        std::array<char16_t, kBlock> units{};
        if (const std::u16string_view rest = text_.substr(at_); rest.size() >= kBlock) {
            std::copy_n(rest.begin(), kBlock, units.begin());
            end_ += kBlock;
        } else {
            std::copy(rest.begin(), rest.end(), units.begin());
            end_ = text_.size();
        }
        std::array<bool, kBlock> found;
        for (std::size_t i = 0; i < kBlock; ++i) {
            found[i] = matches_(units[i]);
        }
        const auto words = std::bit_cast<std::array<std::uint64_t, 2>>(found);
        found_ = words[0];
        later_ = words[1];
    }

    std::u16string_view text_;
    Matches matches_;
    std::size_t at_;   // position of the first unit of found_
    std::size_t end_;  // end of the block
    // One byte per unit, 1 if it matches; cleared when its position has been returned.
    std::uint64_t found_ = 0;
    std::uint64_t later_ = 0;
};

template <class Matches>
std::size_t findUnit(std::u16string_view text, std::size_t start, Matches matches) {
    return UnitFinder<Matches>(text, start, matches).next();
}
