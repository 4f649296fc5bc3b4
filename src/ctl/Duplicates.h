// Finds the records of a list that are the same in all columns.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "ctl/CellsHash.h"
#include "storage/lists/ListRecords.h"

class Duplicates {
public:
    struct Pair {
        int row = 0;
        int first = 0;  // the first row with the same cells
    };

    explicit Duplicates(int rowCount);

    void add(int row, std::span<const std::u16string_view> cells);
    // The rows added that are the same as an earlier one, in rising order. Call once, after all rows. `records` are
    // those of the rows; records with equal hashes are read again.
    std::vector<Pair> find(ListRecords& records);

private:
    // The marks of a hash: that a row has it, and that several have. A few hashes share their marks.
    std::size_t marksOf(std::size_t hash) const { return hash * 2 & (marks_.size() - 1); }

    std::vector<HashedRow> rows_;
    // Nearly all rows have marks of their own, and need not be sorted.
    std::vector<bool> marks_;
};
