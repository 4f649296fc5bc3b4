// Which column of a grid lies under a horizontal position.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/Grid.h"
#include "storage/stations/ListColumns.h"

// Twips from the row's left edge.
struct ColumnSpan {
    int column = 0;  // 1-based
    int left = 0;
    int width = 0;
};

// The columns side by side, each right edge rounded to a whole number, ties to even.
std::vector<ColumnSpan> columnSpans(const std::vector<double>& widths);
// With the widths that the grid shows.
std::vector<ColumnSpan> columnSpans(const Grid& grid);

// The first column whose right edge lies beyond x; nullopt beside the columns.
std::optional<ColumnSpan> spanAt(const std::vector<ColumnSpan>& spans, int x);

// The next span of an editable column right (step 1) or left (step -1) of x; the outermost one when there is no other.
// nullopt without an editable column. One span for each column.
std::optional<ColumnSpan> neighbourOf(const std::vector<ColumnSpan>& spans, std::span<const ListColumn> columns, int x,
                                      int step);
