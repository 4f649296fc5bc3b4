#include "editing/SortListview.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "storage/text/Numbers.h"

namespace {

constexpr double kScratchWidth = 1440;  // twips

std::vector<SortRow> keysOf(const Grid& grid, int column, SortKeyType type) {
    std::vector<SortRow> rows;
    rows.reserve(static_cast<std::size_t>(grid.rowCount()));
    for (int row = 1; row <= grid.rowCount(); ++row) {
        const std::u16string_view text = grid.text(row, column);
        rows.push_back({text, type == SortKeyType::Number ? leadingNumber(text) : 0, row, false});
    }
    return rows;
}

}  // namespace

void SortListview::headerClicked(StationList& list, std::u16string_view key) {
    Direction& direction = directions_[static_cast<std::size_t>(list.kind)];
    direction = direction == Direction::Ascending ? Direction::Descending : Direction::Ascending;
    const auto column = std::find_if(list.columns.begin(), list.columns.end(),
                                     [key](const ListColumn& candidate) { return candidate.headerKey == key; });
    if (column != list.columns.end() && list.grid.rowCount() > 0) {
        sort(list, static_cast<int>(column - list.columns.begin()) + 1, column->sortedAs, direction);
    }
}

void SortListview::sort(StationList& list, int column, SortKeyType type, Direction direction) {
    const int columnCount = static_cast<int>(list.columns.size());
    fillScratch(list.grid, columnCount);
    // Keys are read and parsed once, not at each comparison.
    std::vector<SortRow> rows = keysOf(tmpLV_, column, type);
    sorter_.sort(rows, type);
    if (direction == Direction::Descending) {
        std::reverse(rows.begin(), rows.end());
    }
    const GridUpdate update(list.grid);
    int target = 0;
    for (const SortRow& row : rows) {
        copyBack(list.grid, ++target, row, columnCount);
        if (type == SortKeyType::Number && row.wasPivot) {
            // Required: the number of a pivot is truncated to an integer.
            list.grid.setText(target, column, shortestDecimal(std::trunc(row.number)));
        }
    }
    tmpLV_.clear();
}

void SortListview::fillScratch(const Grid& grid, int columnCount) {
    while (static_cast<int>(tmpLV_.columns().size()) < columnCount) {
        tmpLV_.addColumn({}, {}, kScratchWidth);
    }
    tmpLV_.clear();
    std::vector<std::u16string_view> cells(static_cast<std::size_t>(columnCount));
    for (int row = 1; row <= grid.rowCount(); ++row) {
        int column = 0;
        for (std::u16string_view& cell : cells) {
            cell = grid.text(row, ++column);
        }
        tmpLV_.appendRow(cells);
    }
}

void SortListview::copyBack(Grid& grid, int target, const SortRow& source, int columnCount) {
    for (int column = 1; column <= columnCount; ++column) {
        grid.setText(target, column, std::u16string(tmpLV_.text(source.row, column)));
    }
}
