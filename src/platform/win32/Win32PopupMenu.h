// PMenu as a system popup menu over a grid.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "platform/PopupMenu.h"
#include "platform/win32/Win32TabControl.h"

class Win32PopupMenu : public PopupMenu {
public:
    // The grids outlive this object.
    explicit Win32PopupMenu(const Win32TabControl::Pages& grids) : grids_(grids) {}
    ~Win32PopupMenu() override;
    Win32PopupMenu(const Win32PopupMenu&) = delete;
    Win32PopupMenu& operator=(const Win32PopupMenu&) = delete;

    void create(HWND owner, const std::array<std::u16string, kMenuItemCount>& captions);

    void setListener(MenuListener& listener) override { listener_ = &listener; }
    void setEnabled(MenuItem item, bool enabled) override;
    void show(int tab, double x, double y) override;

private:
    HMENU menu_ = nullptr;
    HWND owner_ = nullptr;
    const Win32TabControl::Pages& grids_;
    MenuListener* listener_ = nullptr;
};
