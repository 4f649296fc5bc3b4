#include "ctl/Duplicates.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string>
#include <utility>

namespace {

// The first row with these cells.
struct First {
    int row;
    std::vector<std::u16string> cells;
};

First rowOf(ListRecords& records, int row) {
    const auto cells = records.cells(row - 1);
    return {row, {cells.begin(), cells.end()}};
}

}  // namespace

Duplicates::Duplicates(int rowCount) {
    constexpr std::size_t kMarksOfARow = 16;
    const auto count = static_cast<std::size_t>(rowCount);
    rows_.reserve(count);
    marks_.resize(std::bit_ceil(count * kMarksOfARow + 2));
}

void Duplicates::add(int row, std::span<const std::u16string_view> cells) {
    const std::size_t hash = hashOf(cells);
    const std::size_t marks = marksOf(hash);
    marks_[marks + 1] = marks_[marks];
    marks_[marks] = true;
    rows_.push_back({hash, row});
}

std::vector<Duplicates::Pair> Duplicates::find(ListRecords& records) {
    std::erase_if(rows_, [this](const HashedRow& row) { return !marks_[marksOf(row.hash) + 1]; });
    std::sort(rows_.begin(), rows_.end());
    std::vector<Pair> pairs;
    std::vector<First> firsts;  // of the rows with this hash
    for (auto row = rows_.begin(); row != rows_.end(); ++row) {
        const auto next = std::next(row);
        const bool isLast = next == rows_.end() || next->hash != row->hash;
        if (!isLast || !firsts.empty()) {
            First read = rowOf(records, row->row);
            const auto same = std::find_if(firsts.begin(), firsts.end(),
                                           [&read](const First& first) { return first.cells == read.cells; });
            if (same == firsts.end()) {
                firsts.push_back(std::move(read));
            } else {
                pairs.push_back({read.row, same->row});
            }
        }
        if (isLast) {
            firsts.clear();
        }
    }
    std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) { return a.row < b.row; });
    return pairs;
}
