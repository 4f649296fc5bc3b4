#include "platform/win32/Win32MainWindow.h"

#include <algorithm>
#include <utility>

#include "platform/win32/Resources.h"
#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"

namespace {

constexpr wchar_t kClassName[] = L"Halcyon_K7.MainForm";
constexpr UINT_PTR kClockTimer = 1;
constexpr double kSideMargin = 120;   // twips left and right of the tab control
constexpr double kBottomMargin = 60;  // twips between tab control and status bar

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
    setFonts();
    layOut();
    statusBar.showTime(kClockTimer);
}

Win32MainWindow::~Win32MainWindow() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

void Win32MainWindow::createFrame(const WindowDesign& design) {
    HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(kIconResource));
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = kClassName;
    RegisterClassExW(&windowClass);
    CreateWindowExW(0, kClassName, toWide(design.caption).c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                    CW_USEDEFAULT, 0, 0, nullptr, nullptr, instance, this);
    const Scale scale(window_);
    RECT area{0, 0, scale.pixels(design.width), scale.pixels(design.height)};
    AdjustWindowRectExForDpi(&area, WS_OVERLAPPEDWINDOW, FALSE, 0, static_cast<UINT>(scale.dpi()));
    // Not activated yet: nothing stands in it that could take the focus.
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32MainWindow::createControls(const WindowDesign& design) {
    tabs.createWindow(window_, design.tabCaptions);
    std::array<HWND, 4> pages{};
    for (std::size_t i = 0; i < grids.size(); ++i) {
        grids[i].createWindow(window_, tabs.window(), design.tabCaptions[i]);
        pages[i] = grids[i].window();
    }
    tabs.setPages(pages);
    statusBar.createWindow(window_);
    editBox.createWindow(window_);
    popupMenu.create(window_, design.menuCaptions, pages);
    SetWindowPos(tabs.window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetWindowPos(editBox.window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ShowWindow(pages[0], SW_SHOWNA);
}

void Win32MainWindow::setFonts() {
    font_.create(Scale(window_).dpi());
    for (Win32GridView& grid : grids) {
        font_.applyTo(grid.window());
    }
    font_.applyTo(tabs.window());
    font_.applyTo(editBox.window());
    font_.applyTo(statusBar.window());
}

void Win32MainWindow::layOut() {
    const Scale scale(window_);
    RECT area{};
    GetClientRect(window_, &area);
    statusBar.layOut(font_);
    RECT status{};
    GetWindowRect(statusBar.window(), &status);
    const int left = scale.pixels(kSideMargin);
    // The box of an edit stands the inset below the grid's place, yet must lie on its row: the grid starts higher by
    // as much as the tab control, and its own border puts the rows lower.
    const int top = scale.pixels(gridTopInset_) - grids[0].border();
    const int bottom = static_cast<int>(area.bottom - (status.bottom - status.top)) - scale.pixels(kBottomMargin);
    MoveWindow(tabs.window(), left, top, std::max(static_cast<int>(area.right) - 2 * left, 0),
               std::max(bottom - top, 0), TRUE);
    const RECT page = tabs.displayArea();
    for (const Win32GridView& grid : grids) {
        MoveWindow(grid.window(), page.left, page.top, static_cast<int>(std::max(page.right - page.left, 0L)),
                   static_cast<int>(std::max(page.bottom - page.top, 0L)), TRUE);
    }
}

void Win32MainWindow::show(int command) {
    ShowWindow(window_, command);
    // A window that became active while it was built had no list to give the keyboard to.
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
        SetFocus(GetFocus() == tabs.currentPage() ? tabs.window() : tabs.currentPage());
        return true;
    }
    if (!held(VK_CONTROL)) {
        return false;
    }
    switch (message.wParam) {
        case VK_TAB:
            tabs.step(held(VK_SHIFT) ? -1 : 1);
            return true;
        case VK_NEXT:
            tabs.step(1);
            return true;
        case VK_PRIOR:
            tabs.step(-1);
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
            if (w != SIZE_MINIMIZED && statusBar.window() != nullptr) {
                layOut();
            }
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
            statusBar.showTime(kClockTimer);
            return 0;
        case WM_DPICHANGED:
            resolutionChanged(*reinterpret_cast<const RECT*>(l));
            return 0;
        case WM_SETTINGCHANGE:
            setFonts();
            layOut();
            statusBar.showTime(kClockTimer);
            return 0;
        case WM_SYSCOLORCHANGE:
            for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
                SendMessageW(child, message, w, l);
            }
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

LRESULT Win32MainWindow::notified(const NMHDR& header) {
    if (header.hwndFrom == tabs.window() && header.code == TCN_SELCHANGE) {
        tabs.selectionChanged();
        return 0;
    }
    for (Win32GridView& grid : grids) {
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
    // Once only: what had the focus when the window was left has no claim on it later.
    const HWND last = std::exchange(lastFocus_, nullptr);
    const bool usable = last != nullptr && IsChild(window_, last) && IsWindowVisible(last);
    SetFocus(usable ? last : tabs.currentPage());
}

void Win32MainWindow::resolutionChanged(const RECT& suggested) {
    setFonts();
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    for (Win32GridView& grid : grids) {
        grid.showWidthsAgain();
    }
}

void Win32MainWindow::reportClosing() {
    if (listener_ != nullptr) {
        listener_->windowClosing();
    }
}
