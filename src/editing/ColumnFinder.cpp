#include "editing/ColumnFinder.h"

#include <algorithm>
#include <cmath>

std::vector<ColumnSpan> columnSpans(const Grid& grid) {
    std::vector<double> widths;
    widths.reserve(grid.columns().size());
    for (const GridColumn& column : grid.columns()) {
        widths.push_back(column.width);
    }
    return columnSpans(widths);
}

std::vector<ColumnSpan> columnSpans(const std::vector<double>& widths) {
    std::vector<ColumnSpan> spans;
    int left = 0;
    for (const double width : widths) {
        const int right = static_cast<int>(std::nearbyint(left + width));
        spans.push_back({static_cast<int>(spans.size()) + 1, left, right - left});
        left = right;
    }
    return spans;
}

std::optional<ColumnSpan> spanAt(const std::vector<ColumnSpan>& spans, int x) {
    if (x < 0) {
        return std::nullopt;
    }
    const auto found =
        std::find_if(spans.begin(), spans.end(), [x](const ColumnSpan& span) { return x < span.left + span.width; });
    return found == spans.end() ? std::nullopt : std::optional(*found);
}

std::optional<ColumnSpan> neighbourOf(const std::vector<ColumnSpan>& spans, std::span<const ListColumn> columns, int x,
                                      int step) {
    std::vector<ColumnSpan> editable;
    std::copy_if(spans.begin(), spans.end(), std::back_inserter(editable),
                 [columns](const ColumnSpan& span) { return columnAt(columns, span.column)->isEditable; });
    if (editable.empty()) {
        return std::nullopt;
    }
    if (step > 0) {
        const auto next =
            std::find_if(editable.begin(), editable.end(), [x](const ColumnSpan& span) { return span.left > x; });
        return next == editable.end() ? editable.back() : *next;
    }
    const auto previous = std::find_if(editable.rbegin(), editable.rend(),
                                       [x](const ColumnSpan& span) { return span.left + span.width <= x; });
    return previous == editable.rend() ? editable.front() : *previous;
}
