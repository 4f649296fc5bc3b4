#include "platform/win32/Win32MainWindow.h"

#include <utility>

namespace {

bool held(int key) { return GetKeyState(key) < 0; }

CameFrom cameFrom(HWND window) {
    DWORD process = 0;
    const bool known = window != nullptr && GetWindowThreadProcessId(window, &process) != 0;
    return known && process == GetCurrentProcessId() ? CameFrom::OwnBox : CameFrom::Elsewhere;
}

}  // namespace

Win32MainWindow::Win32MainWindow(const WindowDesign& design) : gridTopInset_(design.gridTopInset) {
    createFrame(design);
    createControls(design);
    statusBar_.showTime(kClockTimer);
}

Win32MainWindow::~Win32MainWindow() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

void Win32MainWindow::show(int command) {
    tabs_.showCurrentPage();
    ShowWindow(window_, command);
    // When the window was activated during its construction there was no list to focus.
    if (GetActiveWindow() == window_) {
        restoreFocus();
    }
    UpdateWindow(window_);
}

bool Win32MainWindow::usesKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsChild(window_, message.hwnd) || held(VK_MENU)) {
        return false;
    }
    if (message.wParam == VK_TAB && !held(VK_CONTROL)) {
        SetFocus(GetFocus() == tabs_.currentPage() ? tabs_.window() : tabs_.currentPage());
        return true;
    }
    if (!held(VK_CONTROL)) {
        return false;
    }
    switch (message.wParam) {
        case VK_TAB:
            tabs_.step(held(VK_SHIFT) ? -1 : 1);
            return true;
        case VK_NEXT:
            tabs_.step(1);
            return true;
        case VK_PRIOR:
            tabs_.step(-1);
            return true;
        default:
            return false;
    }
}

LRESULT CALLBACK Win32MainWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<Win32MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Win32MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self != nullptr ? self->handle(message, w, l) : DefWindowProcW(window, message, w, l);
}

LRESULT Win32MainWindow::handle(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_SIZE:
            resized(w, l);
            return 0;
        case WM_NOTIFY:
            return notified(*reinterpret_cast<const NMHDR*>(l));
        case WM_ACTIVATE:
            activated(LOWORD(w), reinterpret_cast<HWND>(l));
            return 0;
        case WM_SETFOCUS:
            restoreFocus();
            return 0;
        case WM_TIMER:
        case WM_TIMECHANGE:
            statusBar_.showTime(kClockTimer);
            return 0;
        case WM_DPICHANGED:
            resolutionChanged(*reinterpret_cast<const RECT*>(l));
            return 0;
        case WM_SETTINGCHANGE:
            setFonts();
            layOut();
            statusBar_.showTime(kClockTimer);
            return 0;
        case WM_SYSCOLORCHANGE:
            passToChildren(message, w, l);
            return 0;
        case WM_ENDSESSION:
            if (w != 0) {
                reportClosing();
            }
            return 0;
        case WM_CLOSE:
            reportClosing();
            DestroyWindow(window_);
            return 0;
        case WM_DESTROY:
            KillTimer(window_, kClockTimer);
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY: {
            HWND destroyed = std::exchange(window_, nullptr);
            SetWindowLongPtrW(destroyed, GWLP_USERDATA, 0);
            return DefWindowProcW(destroyed, message, w, l);
        }
        default:
            return DefWindowProcW(window_, message, w, l);
    }
}

void Win32MainWindow::resized(WPARAM kind, LPARAM size) {
    // When the window is shown the system reports a size that has not changed.
    const bool isNew = LOWORD(size) != laidOut_.cx || HIWORD(size) != laidOut_.cy;
    if (kind != SIZE_MINIMIZED && statusBar_.window() != nullptr && isNew) {
        layOut();
    }
}

void Win32MainWindow::passToChildren(UINT message, WPARAM w, LPARAM l) {
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageW(child, message, w, l);
    }
}

LRESULT Win32MainWindow::notified(const NMHDR& header) {
    if (header.hwndFrom == tabs_.window() && header.code == TCN_SELCHANGE) {
        tabs_.selectionChanged();
        return 0;
    }
    for (Win32GridView& grid : grids_) {
        if (grid.window() == header.hwndFrom) {
            return grid.notified(header);
        }
    }
    return 0;
}

void Win32MainWindow::activated(WORD state, HWND other) {
    if (state == WA_INACTIVE || IsIconic(window_) != 0) {
        lastFocus_ = GetFocus();
        return;
    }
    restoreFocus();
    if (listener_ != nullptr) {
        listener_->windowGotFocus(cameFrom(other));
    }
}

void Win32MainWindow::restoreFocus() {
    // Used once: the control that had the focus at the last deactivation must not get it later.
    const HWND last = std::exchange(lastFocus_, nullptr);
    const bool usable = last != nullptr && IsChild(window_, last) && IsWindowVisible(last);
    SetFocus(usable ? last : tabs_.currentPage());
}

void Win32MainWindow::reportClosing() {
    if (listener_ != nullptr) {
        listener_->windowClosing();
    }
}
