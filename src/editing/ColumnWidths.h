// Keeps the columns of the grids at their standard shares until the user drags one.
#pragma once

#include <array>
#include <cstddef>

#include "storage/stations/StationLists.h"

class ColumnWidths {
public:
    explicit ColumnWidths(StationLists lists) : lists_(lists) {}

    // At the start of an edit: restores the standard widths, even after a drag.
    void standardise(ListKind kind);
    // The user has dragged a column: its grid keeps its widths until the next edit.
    void dragged(ListKind kind) { of(kind).isDragged = true; }
    // The grid may have a new size. Nothing if its width has not changed since the columns were fitted: a scroll bar
    // that appears or disappears during a drag must not move the column.
    void resized(ListKind kind);

private:
    struct State {
        bool isDragged = false;
        double width = 0;  // of the grid when the columns were fitted, twips
    };
    State& of(ListKind kind) { return states_[static_cast<std::size_t>(kind)]; }

    StationLists lists_;
    std::array<State, kListCount> states_;
};
