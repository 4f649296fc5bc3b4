// SSTab1 as the system's tab control; its pages are sibling windows over its display area.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "platform/TabControl.h"
#include "platform/win32/Subclass.h"
#include "platform/win32/Win32GridView.h"

class Win32TabControl : public TabControl {
public:
    using Pages = std::array<Win32GridView, kTabCount>;

    // The pages outlive this object.
    explicit Win32TabControl(Pages& pages) : pages_(pages) {}
    // `bounds` in the parent's client area, wide enough for all captions: else the control creates arrows to scroll
    // them.
    void createWindow(HWND parent, const std::array<std::u16string, kTabCount>& captions, const RECT& bounds);

    HWND window() const { return window_; }
    HWND currentPage() const;  // null before it is first shown
    void showCurrentPage();
    // In coordinates of the parent's client area.
    RECT displayArea() const;
    // Acts as a click on a neighbour of the current tab: 1 to the right, -1 to the left.
    void step(int step);
    void selectionChanged();  // call at TCN_SELCHANGE

    void setListener(TabListener& listener) override { listener_ = &listener; }
    int currentTab() const override;
    bool hasFocus() const override { return GetFocus() == window_; }
    double left() const override;

private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM);
    Win32GridView* currentView() const;
    RECT bounds() const;

    Pages& pages_;
    HWND window_ = nullptr;
    Subclass subclass_;
    TabListener* listener_ = nullptr;
};
