// A station grid as the system's list view in report view. The control owns no data: it requests the texts of the Grid
// when it draws. Only the selection exists twice; each change is copied to the Grid.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <utility>

#include "platform/Grid.h"
#include "platform/GridView.h"
#include "platform/win32/CellTip.h"
#include "platform/win32/Subclass.h"

class Win32GridView : public GridView {
public:
    // The window itself is created when it is first shown: each list view costs hundreds of messages. Screen readers
    // read the name.
    void setParent(HWND parent, std::u16string_view name);
    HWND window() const { return window_; }  // null before it is first shown
    void show();                             // above its siblings, without the focus
    void hide() const { ShowWindow(window_, SW_HIDE); }
    void setFont(HFONT font);
    // In the parent's client area: the bounds of the grid, and the top left corner of the tab control.
    void place(const RECT& bounds, POINT corner);
    // Pixels from the window's outer edge to the rows and header.
    int border() const;
    // Handles a WM_NOTIFY of the list view, which its parent receives.
    LRESULT notified(const NMHDR& header);
    // Call when font or resolution have changed: shows the same widths in twips again.
    void showWidthsAgain();

    void attach(Grid& grid, GridListener& listener) override;
    void columnAdded(int column) override;
    double showColumnWidth(int column, double widthTwips) override;
    void beforeAppend(int) override {}
    void afterAppend(int row) override;
    void beforeReset() override {}
    void afterReset() override;
    void cellChanged(int row, int column) override;
    void selectionChanged(int focusedRow) override;
    GridGeometry geometry(int row) override;
    void takeFocus() override;

private:
    // Scope guard: changes are made by the program and not reported as the user's.
    class Quiet {
    public:
        explicit Quiet(int& depth) : depth_(depth) { ++depth_; }
        ~Quiet() { --depth_; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        int& depth_;
    };

    static LRESULT CALLBACK listProcedure(HWND, UINT, WPARAM, LPARAM);
    static LRESULT CALLBACK headerProcedure(HWND, UINT, WPARAM, LPARAM);
    LRESULT listMessage(UINT message, WPARAM w, LPARAM l);
    LRESULT keyMessage(UINT message, WPARAM w, LPARAM l);
    LRESULT scroll(UINT message, WPARAM w, LPARAM l);
    void pointerAt(HWND source, LPARAM point);
    LRESULT leftPressed(UINT message, WPARAM w, LPARAM l);
    void rightPressed(LPARAM point);
    void rightReleased(LPARAM point);
    std::pair<int, int> scrollPosition() const;
    void contextMenu(LPARAM point);
    void headerNotified(const NMHDR& header);
    int rowAt(LPARAM point) const;  // 0-based, -1 if none

    // Nothing before the window is created.
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const { return SendMessageW(window_, message, w, l); }
    RECT rowBounds(int index) const;
    int columnCount() const;
    void createWindow();
    // Gives columns, rows and selection to the list view.
    void fill();
    // The control measures its rows in its first drawing, after which it places header and scroll bar again. A drawing
    // into an empty bitmap while it is hidden avoids that on the screen.
    void measureRows() const;
    void insertColumn(int column);
    void setRowState(int index, UINT state, UINT mask);
    void showRowCount(DWORD flags);
    void showSelection();
    LRESULT customDraw(const NMLVCUSTOMDRAW& draw) const;
    void drawLines(HDC dc) const;
    void tipAt(POINT point);
    void reportSelection(int first, int last, bool selected);
    void fillCell(NMLVDISPINFOW& wanted) const;
    int findRow(const NMLVFINDITEMW& wanted) const;
    void reportViewChange();

    HWND parent_ = nullptr;
    std::wstring name_;
    HFONT font_ = nullptr;
    RECT bounds_{};
    POINT corner_{};
    HWND window_ = nullptr;
    HWND headerWindow_ = nullptr;
    Subclass list_;
    Subclass header_;
    CellTip tip_;
    Grid* grid_ = nullptr;
    GridListener* listener_ = nullptr;
    int quiet_ = 0;
    int pressedHeader_ = -1;
    bool rightDown_ = false;
};
