// A tooltip over a cell whose text is cut. The list view's own unfolds the first column only.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>

class CellTip {
public:
    void create(HWND list);
    // The pointer is over a cell with a cut text. Nothing when that is the cell already.
    void show(const RECT& cell, std::wstring text);
    void hide();
    // The tooltip shows up some time after the messages of the pointer, and goes at a click.
    void relay(UINT message, WPARAM w, LPARAM l) const;

private:
    TTTOOLINFOW tool() const;

    HWND list_ = nullptr;
    HWND tip_ = nullptr;
    RECT cell_{};
    std::wstring text_;
    bool isShown_ = false;
};
