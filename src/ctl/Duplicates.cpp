#include "ctl/Duplicates.h"

#include <bit>
#include <functional>
#include <string_view>

Duplicates::Duplicates(const Grid& grid, int columnCount)
    : grid_(grid),
      columnCount_(columnCount),
      slots_(std::bit_ceil(static_cast<std::size_t>(grid.rowCount()) * 2 + 1)) {}

int Duplicates::add(int row) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hashOf(row) & mask;
    while (slots_[slot] != 0) {
        if (areSame(row, slots_[slot])) {
            return slots_[slot];
        }
        slot = (slot + 1) & mask;
    }
    slots_[slot] = row;
    return 0;
}

std::size_t Duplicates::hashOf(int row) const {
    constexpr std::size_t kFactor = 31;
    std::size_t hash = 0;
    for (int column = 1; column <= columnCount_; ++column) {
        hash = hash * kFactor + std::hash<std::u16string_view>()(grid_.text(row, column));
    }
    return hash;
}

bool Duplicates::areSame(int row, int other) const {
    int column = 1;
    while (column <= columnCount_ && grid_.text(row, column) == grid_.text(other, column)) {
        ++column;
    }
    return column > columnCount_;
}
