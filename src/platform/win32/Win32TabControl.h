// SSTab1 as the system's tab control; its pages are sibling windows over its display area.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "platform/TabControl.h"
#include "platform/win32/Subclass.h"

class Win32TabControl : public TabControl {
public:
    void createWindow(HWND parent, const std::array<std::u16string, kTabCount>& captions);
    void setPages(const std::array<HWND, kTabCount>& pages) { pages_ = pages; }
    HWND window() const { return window_; }
    HWND currentPage() const;
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
    RECT bounds() const;

    HWND window_ = nullptr;
    Subclass subclass_;
    std::array<HWND, kTabCount> pages_{};
    TabListener* listener_ = nullptr;
};
