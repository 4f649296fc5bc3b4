#include "platform/win32/Win32PopupMenu.h"

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"

namespace {

// Identifiers start at 1: 0 is the result of a menu closed without a choice.
UINT identifier(MenuItem item) { return static_cast<UINT>(item) + 1; }

}  // namespace

Win32PopupMenu::~Win32PopupMenu() {
    if (menu_ != nullptr) {
        DestroyMenu(menu_);
    }
}

void Win32PopupMenu::create(HWND owner, const std::array<std::u16string, kMenuItemCount>& captions) {
    owner_ = owner;
    menu_ = CreatePopupMenu();
    for (int i = 0; i < kMenuItemCount; ++i) {
        AppendMenuW(menu_, MF_STRING, identifier(static_cast<MenuItem>(i)),
                    toWide(captions[static_cast<std::size_t>(i)]).c_str());
    }
}

void Win32PopupMenu::setEnabled(MenuItem item, bool enabled) {
    EnableMenuItem(menu_, identifier(item), MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void Win32PopupMenu::show(int tab, double x, double y) {
    if (tab < 0 || tab >= static_cast<int>(grids_.size())) {
        return;
    }
    HWND grid = grids_[static_cast<std::size_t>(tab)].window();
    const Scale scale(grid);
    POINT at{scale.pixels(x), scale.pixels(y)};
    ClientToScreen(grid, &at);
    const BOOL chosen =
        TrackPopupMenuEx(menu_, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x, at.y, owner_, nullptr);
    if (chosen > 0 && listener_ != nullptr) {
        listener_->menuChosen(static_cast<MenuItem>(chosen - 1));
    }
}
