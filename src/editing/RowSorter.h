// Orders rows by one key each, by a quicksort that records which rows have been its pivots.
#pragma once

#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

#include "platform/TextCompare.h"
#include "storage/stations/ListColumns.h"

struct SortRow {
    std::u16string_view text;  // the key of a text sort; must outlive the sort
    double number = 0;         // the key of a numeric sort
    int row = 0;               // 1-based, the row's position before the sort
    bool wasPivot = false;     // result
};

class RowSorter {
public:
    explicit RowSorter(TextCompare& textCompare) : textCompare_(textCompare) {}

    // Ascending; the order of equal keys is undefined. The pivots come from a generator with a fixed seed, so every run
    // of the program sorts alike. The recursion is no deeper than log2 of the number of rows.
    void sort(std::vector<SortRow>& rows, SortKeyType type);

private:
    using Position = std::ptrdiff_t;
    struct Split {
        Position pivot;      // final position of the pivot
        bool equalsToRight;  // a row to the right of it has the same key
    };

    void sortRange(std::vector<SortRow>& rows, Position low, Position high);
    Split partition(std::vector<SortRow>& rows, Position low, Position high);
    Position gatherEquals(std::vector<SortRow>& rows, Position pivot, Position high);
    Position drawPivot(Position low, Position high);
    int compare(const SortRow& left, const SortRow& right);

    TextCompare& textCompare_;
    std::minstd_rand generator_{1};
    SortKeyType type_ = SortKeyType::Text;
};
