// The right button over a grid: which row it selects, and which column the popup menu works on.
#pragma once

#include "editing/CellEditing.h"
#include "storage/stations/StationLists.h"

class RightClick {
public:
    RightClick(StationLists lists, CellEditing& editing) : lists_(lists), editing_(editing) {}

    // The button goes down over a row, 1-based, or over none (0). Whatever keys are held, a row that is not selected
    // becomes the only selected one; a selected row and empty space change nothing.
    void pressed(ListKind kind, int row, double x);
    // The menu is about to open: it works on the column of the press, wherever the pointer has moved since.
    void menuOpens() { editing_.setLastMouseX(pressX_, 0); }

private:
    StationLists lists_;
    CellEditing& editing_;
    double pressX_ = 0;  // twips
};
