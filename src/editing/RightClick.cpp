#include "editing/RightClick.h"

void RightClick::pressed(ListKind kind, int row, double x) {
    pressX_ = x;
    Grid& grid = lists_.grid(kind);
    if (row < 1 || grid.isSelected(row)) {
        return;
    }
    for (int other = 1; other <= grid.rowCount(); ++other) {
        grid.setSelected(other, other == row);
    }
    lists_.view(kind).selectionChanged(row);
}
