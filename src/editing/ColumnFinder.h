// Finds the column of a grid under a horizontal position.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/Grid.h"
#include "storage/stations/ListColumns.h"

// Lengths in twips from the row's left edge.
struct ColumnSpan {
    int column = 0;  // 1-based
    int left = 0;
    int width = 0;
};

// The columns side by side; each right edge is rounded to a whole number, ties to even.
std::vector<ColumnSpan> columnSpans(const std::vector<double>& widths);
// Uses the widths that the grid shows.
std::vector<ColumnSpan> columnSpans(const Grid& grid);

// The first column whose right edge is greater than x; nullopt outside the columns.
std::optional<ColumnSpan> spanAt(const std::vector<ColumnSpan>& spans, int x);

// The next span of an editable column to the right (step 1) or left (step -1) of x; the outermost one if there is no
// next. nullopt without an editable column. `spans` has one span per column.
std::optional<ColumnSpan> neighbourOf(const std::vector<ColumnSpan>& spans, std::span<const ListColumn> columns, int x,
                                      int step);
