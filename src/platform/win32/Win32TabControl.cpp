#include "platform/win32/Win32TabControl.h"

#include <commctrl.h>

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"

void Win32TabControl::createWindow(HWND parent, const std::array<std::u16string, kTabCount>& captions,
                                   const RECT& bounds) {
    // A click must not move the focus: the edit box would commit when it loses the focus.
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | TCS_FOCUSNEVER;
    window_ = CreateWindowExW(0, WC_TABCONTROLW, L"SSTab1", style, bounds.left, bounds.top, bounds.right - bounds.left,
                              bounds.bottom - bounds.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        std::wstring caption = toWide(captions[i]);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        SendMessageW(window_, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    subclass_.install(window_, procedure, this);
}

LRESULT CALLBACK Win32TabControl::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    const auto* tabs = Subclass::selfOf<Win32TabControl>(window);
    const LRESULT result = tabs->subclass_.original(window, message, w, l);
    if (message == WM_SETFOCUS && tabs->listener_ != nullptr) {
        tabs->listener_->tabGotFocus();
    }
    return result;
}

Win32GridView* Win32TabControl::currentView() const {
    const int tab = currentTab();
    return tab >= 0 && tab < static_cast<int>(pages_.size()) ? &pages_[static_cast<std::size_t>(tab)] : nullptr;
}

HWND Win32TabControl::currentPage() const {
    const Win32GridView* page = currentView();
    return page != nullptr ? page->window() : nullptr;
}

void Win32TabControl::showCurrentPage() {
    if (Win32GridView* page = currentView(); page != nullptr) {
        page->show();
    }
}

RECT Win32TabControl::bounds() const {
    RECT area{};
    GetWindowRect(window_, &area);
    MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

RECT Win32TabControl::displayArea() const {
    RECT area = bounds();
    SendMessageW(window_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    return area;
}

int Win32TabControl::currentTab() const { return static_cast<int>(SendMessageW(window_, TCM_GETCURSEL, 0, 0)); }

double Win32TabControl::left() const { return Scale(window_).twips(bounds().left); }

void Win32TabControl::step(int step) {
    const int next = neighbourTab(currentTab(), step, static_cast<int>(pages_.size()));
    SendMessageW(window_, TCM_SETCURSEL, static_cast<WPARAM>(next), 0);
    selectionChanged();
}

void Win32TabControl::selectionChanged() {
    showCurrentPage();
    // Before the other pages are hidden: the focused one would pass the focus on before an open edit is discarded.
    if (listener_ != nullptr) {
        listener_->tabClicked();
    }
    for (const Win32GridView& page : pages_) {
        if (&page != currentView() && page.window() != nullptr) {
            page.hide();
        }
    }
}
