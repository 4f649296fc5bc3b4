// The position of the cell being edited. Written by the cell editing, read by the field validation.
#pragma once

// All lengths in twips.
struct EditState {
    int lastMouseX = 0;       // last pointer position over a grid, from its left edge inside the border
    int editRow = 0;          // 1-based; 0 before the first edit
    int editColumn = -1;      // 1-based; -1: no column there
    int editCellWidth = -1;   // -1: no column there
    double editCellLeft = 0;  // within the row
};
