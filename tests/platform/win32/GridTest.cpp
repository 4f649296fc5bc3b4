// Pointer actions on a grid of the real program, and the grid's own drawing.
#include <array>
#include <cmath>

#include "platform/GridLineColor.h"
#include "platform/win32/WindowFixture.h"

namespace {

class GridTest : public WindowFixture {
protected:
    static LPARAM middle(const RECT& bounds) {
        return MAKELPARAM((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2);
    }
    LPARAM cellOf(HWND list, int row, int column) { return middle(program().cellBounds(list, row, column)); }
    static bool isSelected(HWND list, int row) {
        return SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row - 1), LVIS_SELECTED) != 0;
    }
    static HWND headerOf(HWND list) { return reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0)); }
    static int widthOf(HWND window) {
        RECT outer{};
        GetWindowRect(window, &outer);
        return static_cast<int>(outer.right - outer.left);
    }
    static int columnWidth(HWND list, WPARAM index) {
        return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, index, 0));
    }
    void resizeTo(int width) { SetWindowPos(program().window(), nullptr, 0, 0, width, 500, SWP_NOMOVE | SWP_NOZORDER); }
    Rgb pixelAt(HWND list, int x, int y) {
        POINT at{x, y};
        ClientToScreen(list, &at);
        HDC screen = GetDC(nullptr);
        const COLORREF color = GetPixel(screen, at.x, at.y);
        ReleaseDC(nullptr, screen);
        return {GetRValue(color), GetGValue(color), GetBValue(color)};
    }
    // The contrast between the line to the right of a cell and the cell.
    double lineContrast(HWND list, int row, int column) {
        const RECT cell = program().cellBounds(list, row, column);
        const int y = static_cast<int>(cell.top + cell.bottom) / 2;
        return contrast(pixelAt(list, static_cast<int>(cell.right) - 1, y),
                        pixelAt(list, static_cast<int>(cell.right) - 4, y));
    }
    bool showsTooltip() {
        DWORD process = 0;
        GetWindowThreadProcessId(program().window(), &process);
        for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
            DWORD owner = 0;
            GetWindowThreadProcessId(tip, &owner);
            if (owner == process && IsWindowVisible(tip) != 0) {
                return true;
            }
        }
        return false;
    }
    void pointAt(HWND list, LPARAM at) {
        POINT point{static_cast<short>(LOWORD(at)), static_cast<short>(HIWORD(at))};
        ClientToScreen(list, &point);
        SetCursorPos(point.x, point.y);
        PostMessageW(list, WM_MOUSEMOVE, 0, at);
    }
};

TEST_F(GridTest, ARightClickWithKeysHeldSelectsAnUnselectedRow) {
    start();
    HWND drm = program().list(kDrm);
    for (const WPARAM held : std::array<WPARAM, 2>{MK_CONTROL, MK_SHIFT}) {
        program().click(drm, 1, 1);
        ASSERT_TRUE(eventually([&] { return isSelected(drm, 1); }));
        PostMessageW(drm, WM_RBUTTONDOWN, MK_RBUTTON | held, cellOf(drm, 3, 1));
        EXPECT_TRUE(eventually([&] { return isSelected(drm, 3) && !isSelected(drm, 1); }));
    }
}

TEST_F(GridTest, TheMenuWorksOnTheColumnOfThePress) {
    start();
    HWND drm = program().list(kDrm);
    PostMessageW(drm, WM_RBUTTONDOWN, MK_RBUTTON, cellOf(drm, 1, 2));
    PostMessageW(drm, WM_MOUSEMOVE, MK_RBUTTON, cellOf(drm, 1, 4));
    PostMessageW(drm, WM_RBUTTONUP, 0, cellOf(drm, 1, 4));
    ASSERT_TRUE(eventually([&] { return program().menu() != nullptr; }));
    pressKey('E');
    EXPECT_TRUE(eventually([&] { return program().boxIsOpen() && textOf(program().box()) == L"6095"; }));
}

TEST_F(GridTest, ThePointerOverTheHeaderChoosesTheColumn) {
    start();
    HWND drm = program().list(kDrm);
    program().click(drm, 1, 1);
    const RECT second = program().cellBounds(drm, 1, 2);
    PostMessageW(headerOf(drm), WM_MOUSEMOVE, 0, MAKELPARAM((second.left + second.right) / 2, 5));
    EXPECT_TRUE(pressUntil([] { pressKey(VK_RETURN); }, [&] { return program().boxIsOpen(); }));
    EXPECT_EQ(textOf(program().box()), L"6095");
}

TEST_F(GridTest, OnlyTheLeftButtonOnAColumnSorts) {
    start();
    HWND drm = program().list(kDrm);
    const auto before = program().columnTexts(drm, 1);
    const LPARAM onColumn = MAKELPARAM(30, 5);
    const LPARAM beside = MAKELPARAM(program().cellBounds(drm, 1, 4).right + 20, 5);
    for (const UINT message : std::array<UINT, 4>{WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK}) {
        SendMessageW(headerOf(drm), message, 0, onColumn);
    }
    for (const UINT message : std::array<UINT, 4>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
        SendMessageW(headerOf(drm), message, 0, beside);
    }
    EXPECT_EQ(program().columnTexts(drm, 1), before);
    // The direction has not been reversed: the first sort is descending.
    program().clickHeader(drm, 1);
    const std::vector<std::wstring> descending{L"Charlie", L"Bravo", L"alpha"};
    EXPECT_TRUE(eventually([&] { return program().columnTexts(drm, 1) == descending; }));
}

TEST_F(GridTest, TheWheelWithoutScrollingKeepsTheEditOpen) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 1, 2));
    SendMessageW(drm, WM_MOUSEWHEEL, static_cast<WPARAM>(MAKELONG(0, 120)), 0);
    SendMessageW(drm, WM_MOUSEWHEEL, static_cast<WPARAM>(MAKELONG(0, -120)), 0);
    EXPECT_TRUE(program().boxIsOpen());
}

TEST_F(GridTest, TheColumnsFollowTheWindowUntilOneIsDragged) {
    start();
    HWND drm = program().list(kDrm);
    const auto followed = [&] { return std::abs(columnWidth(drm, 0) - widthOf(drm) / 5.0) <= 1; };
    for (const int width : {1000, 500, 760}) {
        resizeTo(width);
        EXPECT_TRUE(eventually(followed)) << width;
        EXPECT_EQ(GetWindowLongPtrW(drm, GWL_STYLE) & WS_HSCROLL, 0) << width;
    }
    SendMessageW(drm, LVM_SETCOLUMNWIDTH, 0, 200);
    resizeTo(900);
    ASSERT_TRUE(eventually([&] { return widthOf(drm) > 800; }));
    EXPECT_EQ(columnWidth(drm, 0), 200);
    ASSERT_TRUE(opensBoxAt(drm, 1, 1));
    EXPECT_TRUE(followed());
    expectBoxOnCell(drm, 1, 1);
}

TEST_F(GridTest, ATruncatedTextIsShownInATooltip) {
    folder.write("List.ini",
                 savedFile(totals(2) + drmRecord(0, "A programme with a name too long for its column", "1") +
                           drmRecord(1, "Short", "2")));
    start();
    HWND drm = program().list(kDrm);
    pointAt(drm, cellOf(drm, 1, 1));
    EXPECT_TRUE(eventually([&] { return showsTooltip(); }));
    pointAt(drm, cellOf(drm, 2, 1));
    EXPECT_TRUE(eventually([&] { return !showsTooltip(); }));
}

// Wine does not pass system colours set by a test to other processes; GridLineColorTest covers dark and high-contrast
// colours.
TEST_F(GridTest, TheGridLinesAreVisible) {
    start();
    HWND drm = program().list(kDrm);
    EXPECT_TRUE(eventually([&] { return lineContrast(drm, 2, 2) >= 1.5; })) << lineContrast(drm, 2, 2);
}

}  // namespace
