// Finds the records of a list that are the same in all columns.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/Grid.h"

class Duplicates {
public:
    // `grid` outlives this object and does not change.
    Duplicates(const Grid& grid, int columnCount);

    // The first of the rows added so far that is the same as this one; 0, and the row is added, if there is none.
    int add(int row);

private:
    std::size_t hashOf(int row) const;
    bool areSame(int row, int other) const;

    const Grid& grid_;
    int columnCount_;
    std::vector<int> slots_;  // open addressing: a row, 0 if free
};
