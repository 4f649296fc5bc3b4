// The right button over a grid: the row that it selects, and the column that the popup menu works on.
#pragma once

#include "editing/CellEditing.h"
#include "storage/stations/StationLists.h"

class RightClick {
public:
    RightClick(StationLists lists, CellEditing& editing) : lists_(lists), editing_(editing) {}

    // The button goes down over a row (1-based) or empty space (0). A row that is not selected becomes the only
    // selected row, whatever keys are held; otherwise the selection is unchanged.
    void pressed(ListKind kind, int row, double x);
    // The menu is about to open: it works on the column of the press, even if the pointer has moved since.
    void menuOpens() { editing_.setLastMouseX(pressX_, 0); }

private:
    StationLists lists_;
    CellEditing& editing_;
    double pressX_ = 0;  // twips
};
