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

SIZE frameSize(const WindowDesign& design, const Scale& scale) {
    RECT area{0, 0, scale.pixels(design.width), scale.pixels(design.height)};
    AdjustWindowRectExForDpi(&area, WS_OVERLAPPEDWINDOW, FALSE, 0, static_cast<UINT>(scale.dpi()));
    return {area.right - area.left, area.bottom - area.top};
}

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
    // The monitor is not known yet. Most have the resolution of the system.
    const Scale ofSystem(static_cast<int>(GetDpiForSystem()));
    const SIZE usual = frameSize(design, ofSystem);
    CreateWindowExW(0, kClassName, toWide(design.caption).c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                    CW_USEDEFAULT, usual.cx, usual.cy, nullptr, nullptr, instance, this);
    const Scale scale(window_);
    if (scale.dpi() != ofSystem.dpi()) {
        const SIZE size = frameSize(design, scale);
        // Not activated yet: there is no control that could take the focus.
        SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// In an order in which each control gets its font and its place once.
void Win32MainWindow::createControls(const WindowDesign& design) {
    font_.create(Scale(window_).dpi());
    statusBar_.createWindow(window_);
    font_.applyTo(statusBar_.window());
    statusBar_.layOut(font_);
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        grids_[i].setParent(window_, design.tabCaptions[i]);
        grids_[i].setFont(font_.handle());
    }
    tabs_.createWindow(window_, design.tabCaptions, tabBounds());
    font_.applyTo(tabs_.window());
    placeGrids();
    editBox_.setParent(window_);
    editBox_.setFont(font_.handle());
    popupMenu_.create(window_, design.menuCaptions);
}

void Win32MainWindow::setFonts() {
    font_.create(Scale(window_).dpi());
    for (Win32GridView& grid : grids_) {
        grid.setFont(font_.handle());
    }
    font_.applyTo(tabs_.window());
    editBox_.setFont(font_.handle());
    font_.applyTo(statusBar_.window());
}

// Above the status bar.
RECT Win32MainWindow::tabBounds() const {
    const Scale scale(window_);
    RECT area{};
    GetClientRect(window_, &area);
    RECT status{};
    GetWindowRect(statusBar_.window(), &status);
    const int side = scale.pixels(kSideMargin);
    RECT bounds{};
    bounds.left = side;
    bounds.right = std::max(static_cast<int>(area.right) - side, side);
    // The edit box is placed this inset below the grid's rows and must cover its row. The tab control starts higher by
    // the grid's border, which moves the rows down.
    bounds.top = scale.pixels(gridTopInset_) - grids_[0].border();
    bounds.bottom = std::max(area.bottom - (status.bottom - status.top) - scale.pixels(kBottomMargin), bounds.top);
    return bounds;
}

void Win32MainWindow::layOut() {
    statusBar_.layOut(font_);
    const RECT bounds = tabBounds();
    MoveWindow(tabs_.window(), bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, TRUE);
    placeGrids();
}

void Win32MainWindow::placeGrids() {
    RECT area{};
    GetClientRect(window_, &area);
    laidOut_ = {area.right, area.bottom};
    const RECT tabs = tabBounds();
    RECT page = tabs_.displayArea();
    page.right = std::max(page.right, page.left);
    page.bottom = std::max(page.bottom, page.top);
    for (Win32GridView& grid : grids_) {
        grid.place(page, {tabs.left, tabs.top});
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
