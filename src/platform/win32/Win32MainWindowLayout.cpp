// The frame of the main window and the layout of its controls.
#include <algorithm>

#include "platform/win32/Resources.h"
#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32MainWindow.h"

namespace {

constexpr wchar_t kClassName[] = L"Halcyon_K7.MainForm";
constexpr double kSideMargin = 120;   // twips, left and right of the tab control
constexpr double kBottomMargin = 60;  // twips, between tab control and status bar

}  // namespace

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
    // Not activated yet: there is no control that could take the focus.
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32MainWindow::createControls(const WindowDesign& design) {
    tabs_.createWindow(window_, design.tabCaptions);
    std::array<HWND, kTabCount> pages{};
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        grids_[i].createWindow(window_, tabs_.window(), design.tabCaptions[i]);
        pages[i] = grids_[i].window();
    }
    tabs_.setPages(pages);
    statusBar_.createWindow(window_);
    editBox_.createWindow(window_);
    popupMenu_.create(window_, design.menuCaptions, pages);
    SetWindowPos(tabs_.window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetWindowPos(editBox_.window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ShowWindow(pages[0], SW_SHOWNA);
}

void Win32MainWindow::setFonts() {
    font_.create(Scale(window_).dpi());
    for (Win32GridView& grid : grids_) {
        font_.applyTo(grid.window());
    }
    font_.applyTo(tabs_.window());
    font_.applyTo(editBox_.window());
    font_.applyTo(statusBar_.window());
}

void Win32MainWindow::layOut() {
    const Scale scale(window_);
    RECT area{};
    GetClientRect(window_, &area);
    statusBar_.layOut(font_);
    RECT status{};
    GetWindowRect(statusBar_.window(), &status);
    const int left = scale.pixels(kSideMargin);
    // The edit box is placed this inset below the grid's rows and must cover its row. The tab control starts higher by
    // the grid's border, which moves the rows down.
    const int top = scale.pixels(gridTopInset_) - grids_[0].border();
    const int bottom = static_cast<int>(area.bottom - (status.bottom - status.top)) - scale.pixels(kBottomMargin);
    MoveWindow(tabs_.window(), left, top, std::max(static_cast<int>(area.right) - 2 * left, 0),
               std::max(bottom - top, 0), TRUE);
    const RECT page = tabs_.displayArea();
    for (const Win32GridView& grid : grids_) {
        MoveWindow(grid.window(), page.left, page.top, static_cast<int>(std::max(page.right - page.left, 0L)),
                   static_cast<int>(std::max(page.bottom - page.top, 0L)), TRUE);
    }
}

void Win32MainWindow::resolutionChanged(const RECT& suggested) {
    setFonts();
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    for (Win32GridView& grid : grids_) {
        grid.showWidthsAgain();
    }
}
