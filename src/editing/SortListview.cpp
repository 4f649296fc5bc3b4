#include "editing/SortListview.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "storage/text/Numbers.h"

namespace {

constexpr std::size_t kScratchColumns = 4;
constexpr double kScratchWidth = 1440;

struct SortableColumn {
    ListKind kind;
    std::u16string_view key;
    int column;  // 1-based
    SortKeyType type;
};

// Favourites mix kHz and MHz, so their frequencies sort as texts.
constexpr std::array<SortableColumn, 13> kSortableColumns = {{
    {ListKind::Drm, u"PROG", 1, SortKeyType::Text},
    {ListKind::Drm, u"FREQ", 2, SortKeyType::Number},
    {ListKind::Drm, u"TIME", 3, SortKeyType::Text},
    {ListKind::Drm, u"TARG", 4, SortKeyType::Text},
    {ListKind::Am, u"PROG", 1, SortKeyType::Text},
    {ListKind::Am, u"FREQ", 2, SortKeyType::Number},
    {ListKind::Am, u"BAND", 3, SortKeyType::Text},
    {ListKind::Fm, u"PROG", 1, SortKeyType::Text},
    {ListKind::Fm, u"FREQ", 2, SortKeyType::Number},
    {ListKind::Fm, u"BAND", 3, SortKeyType::Text},
    {ListKind::Favourite, u"PROG", 1, SortKeyType::Text},
    {ListKind::Favourite, u"FREQ", 2, SortKeyType::Text},
    {ListKind::Favourite, u"SYST", 3, SortKeyType::Text},
}};

int columnCountOf(ListKind kind) { return kind == ListKind::Drm ? 4 : 3; }

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
    const auto* const column = std::find_if(
        kSortableColumns.begin(), kSortableColumns.end(),
        [&](const SortableColumn& candidate) { return candidate.kind == list.kind && candidate.key == key; });
    if (column != kSortableColumns.end() && list.grid.rowCount() > 0) {
        sort(list, column->column, column->type, direction);
    }
}

void SortListview::sort(StationList& list, int column, SortKeyType type, Direction direction) {
    const int columnCount = columnCountOf(list.kind);
    fillScratch(list.grid);
    // Once, so that no text is read and no number parsed again at each comparison.
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
            // A pivot passes through its number and comes back as a whole one.
            list.grid.setText(target, column, shortestDecimal(std::trunc(row.number)));
        }
    }
    tmpLV_.clear();
}

void SortListview::fillScratch(const Grid& grid) {
    while (tmpLV_.columns().size() < kScratchColumns) {
        tmpLV_.addColumn({}, {}, kScratchWidth);
    }
    tmpLV_.clear();
    for (int row = 1; row <= grid.rowCount(); ++row) {
        tmpLV_.appendRow({grid.text(row, 1), grid.text(row, 2), grid.text(row, 3), grid.text(row, 4)});
    }
}

void SortListview::copyBack(Grid& grid, int target, const SortRow& source, int columnCount) {
    for (int column = 1; column <= columnCount; ++column) {
        grid.setText(target, column, std::u16string(tmpLV_.text(source.row, column)));
    }
}
