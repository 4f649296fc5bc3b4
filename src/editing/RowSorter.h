// Orders rows by one key each: a quicksort that remembers which rows have been its pivots.
#pragma once

#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

#include "platform/TextCompare.h"
#include "storage/stations/ListColumns.h"

struct SortRow {
    std::u16string_view text;  // the key of a text sort; must outlive the sort
    double number = 0;         // the key of a number sort
    int row = 0;               // 1-based, where the row came from
    bool wasPivot = false;     // result
};

class RowSorter {
public:
    explicit RowSorter(TextCompare& textCompare) : textCompare_(textCompare) {}

    // Ascending; rows of equal keys end in no defined order. The pivots are drawn from a generator of a fixed
    // seed, so a run of the program repeats the run before. Nests no deeper than log2 of the number of rows.
    void sort(std::vector<SortRow>& rows, SortKeyType type);

private:
    using Position = std::ptrdiff_t;
    struct Split {
        Position pivot;      // where the pivot came to rest
        bool equalsToRight;  // a row right of it has the same key
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
