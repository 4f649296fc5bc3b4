// Which column of a grid lies under a horizontal position, and which columns can be edited.
#pragma once

#include <optional>
#include <vector>

#include "platform/Grid.h"

// Twips from the row's left edge.
struct ColumnSpan {
    int column = 0;  // 1-based
    int left = 0;
    int width = 0;
};

// The columns side by side, each right edge rounded to a whole 16-bit number; what lies beyond saturates.
std::vector<ColumnSpan> columnSpans(const std::vector<double>& widths);
// With the widths that the grid shows.
std::vector<ColumnSpan> columnSpans(const Grid& grid);

// The first column whose right edge lies beyond x; nullopt beside the columns.
std::optional<ColumnSpan> columnAt(const std::vector<ColumnSpan>& spans, int x);

// Column 3 follows from the other cells or from where the record came from.
inline constexpr bool isEditableColumn(int column) { return column >= 1 && column != 3; }

// The next editable column right (step 1) or left (step -1) of x; the outermost one when there is no other.
// nullopt without an editable column.
std::optional<ColumnSpan> neighbourOf(const std::vector<ColumnSpan>& spans, int x, int step);
