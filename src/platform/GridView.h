// The control that shows a Grid in report view: what the portable code calls and what the control reports.
#pragma once

#include <string_view>

class Grid;

// Windows virtual-key codes and shift states, on every system.
namespace Key {
inline constexpr int Enter = 13;
inline constexpr int Left = 37;
inline constexpr int Right = 39;
inline constexpr int Delete = 46;  // for a letter: the code of the capital letter
}  // namespace Key
namespace Shift {
inline constexpr int None = 0;
inline constexpr int ShiftKey = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;  // AltGr reports Alt, with or without Ctrl
}  // namespace Shift

// Positions are in twips, relative to the top left corner of the grid inside its border (the left edge of column 1 if
// nothing is scrolled sideways).
class GridListener {
public:
    virtual ~GridListener() = default;
    // True: the key is handled, the control must not get it.
    virtual bool keyDown(int key, int shift) = 0;
    virtual void pointerMoved(double x, double y) = 0;  // over the rows, the empty space or the header
    // The right button goes down over a row (1-based) or over empty space (0). The view does not change the selection.
    virtual void rightPressed(int row, double x, double y) = 0;
    // The user opens the popup menu with the pointer, at or after a press that has been reported.
    virtual void rightButton(double x, double y) = 0;
    // The user opens the popup menu with the menu key or Shift+F10; y is the middle of the focused row.
    virtual void menuKey(double y) = 0;
    virtual void itemClicked() = 0;                                 // left click on a row
    virtual void itemDoubleClicked() = 0;                           // left double-click on a row; the row is selected
    virtual void headerClicked(std::u16string_view columnKey) = 0;  // with the left button
    // The user has dragged a column; the grid has the new width.
    virtual void columnDragged() = 0;
    // The size of the grid has changed.
    virtual void resized() = 0;
    // The grid moves under an edit box without a click on a row: a click on empty space, or scrolling.
    virtual void viewChanged() = 0;
};

// In twips. left and top: the grid's outer edge within the tab control. rowLeft and rowTop: the requested row within
// the grid, without the border, with the header.
struct GridGeometry {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    double rowLeft = 0;
    double rowTop = 0;
    double rowHeight = 0;
};

class GridView {
public:
    virtual ~GridView() = default;
    // Both arguments outlive the view's window. Called once, before the window is shown.
    virtual void attach(Grid& grid, GridListener& listener) = 0;

    // Notifications of the grid, 1-based; in the after... calls the grid already has its new state.
    virtual void columnAdded(int column) = 0;
    // Shows the width; returns the shown width, rounded to whole pixels, in twips.
    virtual double showColumnWidth(int column, double widthTwips) = 0;
    virtual void beforeAppend(int row) = 0;
    virtual void afterAppend(int row) = 0;
    virtual void beforeReset() = 0;
    // Rows, texts and selection may have changed: read them again and keep the scroll position if possible.
    virtual void afterReset() = 0;
    virtual void cellChanged(int row, int column) = 0;

    // The grid's selection has changed: show it; the row gets the focus.
    virtual void selectionChanged(int focusedRow) = 0;

    // Scrolls the row into view first if necessary. For row 0, rowTop and rowHeight are 0.
    virtual GridGeometry geometry(int row) = 0;
    virtual void takeFocus() = 0;
};
