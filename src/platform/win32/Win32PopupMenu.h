// PMenu as a system popup menu over a grid.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "platform/PopupMenu.h"
#include "platform/TabControl.h"

class Win32PopupMenu : public PopupMenu {
public:
    Win32PopupMenu() = default;
    ~Win32PopupMenu() override;
    Win32PopupMenu(const Win32PopupMenu&) = delete;
    Win32PopupMenu& operator=(const Win32PopupMenu&) = delete;

    void create(HWND owner, const std::array<std::u16string, kMenuItemCount>& captions,
                const std::array<HWND, kTabCount>& grids);

    void setListener(MenuListener& listener) override { listener_ = &listener; }
    void setEnabled(MenuItem item, bool enabled) override;
    void show(int tab, double x, double y) override;

private:
    HMENU menu_ = nullptr;
    HWND owner_ = nullptr;
    std::array<HWND, kTabCount> grids_{};
    MenuListener* listener_ = nullptr;
};
