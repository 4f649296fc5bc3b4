#include "editing/ColumnWidths.h"

void ColumnWidths::standardise(ListKind kind) {
    of(kind).isDragged = false;
    applyStandardWidths(lists_[kind]);
}

void ColumnWidths::resized(ListKind kind) {
    const double width = lists_.view(kind).geometry(0).width;
    if (width == of(kind).width) {
        return;
    }
    of(kind).width = width;
    if (!of(kind).isDragged) {
        applyStandardWidths(lists_[kind]);
    }
}
