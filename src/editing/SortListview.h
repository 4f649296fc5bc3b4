// Sorts a grid by the column whose header was clicked, through a scratch grid.
#pragma once

#include <array>
#include <string_view>

#include "editing/RowSorter.h"
#include "platform/TextCompare.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"

class SortListview {
public:
    explicit SortListview(TextCompare& textCompare) : sorter_(textCompare) {}

    // Reverses the list's direction, then sorts by the column with that key; the first click on a list sorts
    // descending. With an unknown key or an empty list only the direction changes. The selection stays at its
    // positions.
    void headerClicked(StationList& list, std::u16string_view key);

private:
    enum class Direction { Ascending, Descending };

    void sort(StationList& list, int column, SortKeyType type, Direction direction);
    void fillScratch(const Grid& grid, int columnCount);
    void copyBack(Grid& grid, int target, const SortRow& source, int columnCount);

    std::array<Direction, kListCount> directions_{};  // one for all columns of a list, never reset
    RowStore tmpLV_;                                  // empty except during a sort
    RowSorter sorter_;
};
