// Keeps the columns of the grids at their standard shares until the user drags one.
#pragma once

#include <array>
#include <cstddef>

#include "storage/stations/StationLists.h"

class ColumnWidths {
public:
    explicit ColumnWidths(StationLists lists) : lists_(lists) {}

    // An edit starts: standard widths, whatever the user has dragged.
    void standardise(ListKind kind);
    // The user has dragged a column: its grid keeps its widths until the next edit.
    void dragged(ListKind kind) { of(kind).isDragged = true; }
    // The grid may have another size. Nothing when its width is the one that the columns have followed already: a
    // scroll bar that comes or goes during a drag leaves the column to the user.
    void resized(ListKind kind);

private:
    struct State {
        bool isDragged = false;
        double width = 0;  // of the grid, twips
    };
    State& of(ListKind kind) { return states_[static_cast<std::size_t>(kind)]; }

    StationLists lists_;
    std::array<State, kListCount> states_;
};
