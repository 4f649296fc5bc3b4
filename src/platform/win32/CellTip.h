// A tooltip over a cell whose text is truncated. The list view's own tooltip works in the first column only.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>

class CellTip {
public:
    // The tooltip window is created when it is first shown.
    void setList(HWND list) { list_ = list; }
    // The pointer is over a truncated cell. Nothing if the tooltip already belongs to that cell.
    void show(const RECT& cell, std::wstring text);
    void hide();
    // Pass all pointer messages: the tooltip appears some time after them and disappears at a click.
    void relay(UINT message, WPARAM w, LPARAM l) const;

private:
    void create();
    TTTOOLINFOW tool() const;

    HWND list_ = nullptr;
    HWND tip_ = nullptr;
    RECT cell_{};
    std::wstring text_;
    bool isShown_ = false;
};
