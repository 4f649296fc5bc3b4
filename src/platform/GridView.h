// The control that shows a Grid in report view: what the portable code asks of it and what it reports.
#pragma once

#include <string_view>

class Grid;

// Windows virtual-key codes and shift states, on every system.
namespace Key {
inline constexpr int Enter = 13;
inline constexpr int Left = 37;
inline constexpr int Right = 39;
inline constexpr int Delete = 46;  // letters: the code of the capital letter
}  // namespace Key
namespace Shift {
inline constexpr int None = 0;
inline constexpr int ShiftKey = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;  // AltGr reports Alt, with or without Ctrl
}  // namespace Shift

// Positions are in twips, x and y relative to the grid's top left corner inside its border
// (the left edge of column 1 while nothing is scrolled sideways).
class GridListener {
public:
    virtual ~GridListener() = default;
    // Returns true if the key is handled and must not reach the control.
    virtual bool keyDown(int key, int shift) = 0;
    virtual void pointerMoved(double x, double y) = 0;  // over the rows, the empty space or the header
    // The right button goes down over a row, 1-based, or over empty space (0). The view leaves the selection as it is.
    virtual void rightPressed(int row, double x, double y) = 0;
    // The user asks for the popup menu with the pointer, at or after the press that has been reported.
    virtual void rightButton(double x, double y) = 0;
    // The user asks for the popup menu with the menu key or Shift+F10; y is the middle of the focused row.
    virtual void menuKey(double y) = 0;
    virtual void itemClicked() = 0;                                 // left click on a row
    virtual void itemDoubleClicked() = 0;                           // left double-click on a row; the row is selected
    virtual void headerClicked(std::u16string_view columnKey) = 0;  // with the left button
    // The user has dragged a column; the grid has its new width.
    virtual void columnDragged() = 0;
    // The grid has another size.
    virtual void resized() = 0;
    // The grid moves under an edit box without a row being clicked: a click on empty space, or a scroll that moves it.
    virtual void viewChanged() = 0;
};

// All in twips. left and top are those of the grid's outer edge within the tab control,
// rowLeft and rowTop those of the row asked for within the grid, border excluded, header included.
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
    // Both outlive the view's window. Called once, before the window is shown.
    virtual void attach(Grid& grid, GridListener& listener) = 0;

    // Notifications of the grid, 1-based; the grid already holds the new state in the after... calls.
    virtual void columnAdded(int column) = 0;
    // Shows the width and returns it as shown, rounded to whole pixels, in twips.
    virtual double showColumnWidth(int column, double widthTwips) = 0;
    virtual void beforeAppend(int row) = 0;
    virtual void afterAppend(int row) = 0;
    virtual void beforeReset() = 0;
    // Rows, texts and selection may all be new: read them again, keep the scroll position if possible.
    virtual void afterReset() = 0;
    virtual void cellChanged(int row, int column) = 0;

    // Shows the grid's selection, which is new; the row becomes the focused one.
    virtual void selectionChanged(int focusedRow) = 0;

    // Scrolls the row into view first if it is not. row 0: rowTop and rowHeight are 0.
    virtual GridGeometry geometry(int row) = 0;
    virtual void takeFocus() = 0;
};
