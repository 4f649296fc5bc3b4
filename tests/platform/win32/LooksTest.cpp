// System changes that affect the window: colours, fonts, resolutions and the clock.
#include <array>
#include <utility>

#include "platform/win32/WindowFixture.h"

namespace {

using DateAndTime = std::pair<std::wstring, std::wstring>;

DateAndTime dateAndTime() {
    std::array<wchar_t, 80> date{};
    std::array<wchar_t, 80> time{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date.data(), 80, nullptr);
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, time.data(), 80);
    return {date.data(), time.data()};
}

class LooksTest : public WindowFixture {
protected:
    static constexpr int kColumns = 4;

    // A new minute may begin while the window handles the message.
    void expectClockRenewedBy(UINT message, WPARAM parameter) {
        ASSERT_TRUE(program().overwriteStatus(2, L"no date"));
        ASSERT_TRUE(program().overwriteStatus(3, L"no time"));
        const DateAndTime before = dateAndTime();
        SendMessageW(program().window(), message, parameter, 0);
        const DateAndTime shown{program().status(2), program().status(3)};
        const DateAndTime after = dateAndTime();
        EXPECT_TRUE(shown == before || shown == after);
    }
    std::array<LRESULT, kColumns> columnWidths(HWND list) {
        std::array<LRESULT, kColumns> widths{};
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = SendMessageW(list, LVM_GETCOLUMNWIDTH, i, 0);
        }
        return widths;
    }
    RECT placeOf(HWND list) {
        RECT place{};
        GetWindowRect(list, &place);
        return place;
    }
    void expectReadableRows(HWND list) {
        EXPECT_TRUE(IsWindowVisible(list));
        EXPECT_EQ(program().columnTexts(list, 1), (std::vector<std::wstring>{L"Charlie", L"alpha", L"Bravo"}));
        EXPECT_EQ(SendMessageW(list, LVM_GETBKCOLOR, 0, 0), static_cast<LRESULT>(GetSysColor(COLOR_WINDOW)));
        const auto text = static_cast<COLORREF>(SendMessageW(list, LVM_GETTEXTCOLOR, 0, 0));
        EXPECT_TRUE(text == CLR_DEFAULT || text == GetSysColor(COLOR_WINDOWTEXT)) << text;
        const RECT first = program().cellBounds(list, 1, 1);
        const RECT second = program().cellBounds(list, 2, 1);
        EXPECT_GT(first.bottom, first.top);
        EXPECT_EQ(second.top, first.bottom);
    }
};

TEST_F(LooksTest, TheStatusBarShowsDateAndTime) {
    start();
    EXPECT_TRUE(eventually([&] { return DateAndTime(program().status(2), program().status(3)) == dateAndTime(); }));
}

TEST_F(LooksTest, DateAndTimeAreUpdatedByTheTimerAndAfterAClockChange) {
    start();
    constexpr WPARAM kClockTimer = 1;
    expectClockRenewedBy(WM_TIMER, kClockTimer);
    expectClockRenewedBy(WM_TIMECHANGE, 0);
    expectClockRenewedBy(WM_SETTINGCHANGE, 0);
}

TEST_F(LooksTest, AnotherResolutionMovesTheWindowAndLosesNothing) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 2, 2));
    typeInto(program().box(), L"7000");
    ASSERT_TRUE(eventually([&] { return textOf(program().box()) == L"7000"; }));
    const RECT suggested{40, 60, 940, 560};
    program().comeToResolution(96, suggested);

    RECT taken{};
    GetWindowRect(program().window(), &taken);
    EXPECT_TRUE(EqualRect(&taken, &suggested))
        << taken.left << ' ' << taken.top << ' ' << taken.right << ' ' << taken.bottom;
    // The edit ends because its row may have moved.
    EXPECT_TRUE(cellBecomes(drm, 2, 2, L"7000"));
    EXPECT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    RECT grid{};
    GetWindowRect(drm, &grid);
    EXPECT_NEAR(static_cast<double>(columnWidths(drm)[0]), static_cast<double>(grid.right - grid.left) / 5, 1);
    expectReadableRows(drm);
    EXPECT_EQ(program().cell(showFavourites(), 1, 2), L"98.5  MHz");
    showDrm();
    ASSERT_TRUE(opensBoxAt(drm, 3, 4));
    expectBoxOnCell(drm, 3, 4);
}

TEST_F(LooksTest, AListThatIsFirstShownLaterIsPlacedAsTheFirst) {
    start();
    HWND drm = program().list(kDrm);
    EXPECT_EQ(program().list(kAm), nullptr);
    SetWindowPos(program().window(), nullptr, 0, 0, 900, 400, SWP_NOMOVE | SWP_NOZORDER);
    const RECT place = placeOf(drm);
    HWND am = showAm();
    const RECT taken = placeOf(am);
    EXPECT_TRUE(EqualRect(&place, &taken));
    EXPECT_NEAR(static_cast<double>(columnWidths(am)[0]), static_cast<double>(place.right - place.left) / 3.1, 1);
    EXPECT_EQ(SendMessageW(am, WM_GETFONT, 0, 0), SendMessageW(drm, WM_GETFONT, 0, 0));
    EXPECT_TRUE(eventually([&] { return IsWindowVisible(am) != 0 && IsWindowVisible(drm) == 0; }));
    EXPECT_EQ(program().focus(), am);
    showDrm();
    EXPECT_EQ(showAm(), am);
}

TEST_F(LooksTest, ADraggedColumnKeepsItsWidthInAnotherResolution) {
    start();
    HWND drm = program().list(kDrm);
    SendMessageW(drm, LVM_SETCOLUMNWIDTH, 0, SendMessageW(drm, LVM_GETCOLUMNWIDTH, 0, 0) + 60);
    const auto widths = columnWidths(drm);
    program().comeToResolution(96, {40, 60, 940, 560});
    EXPECT_EQ(columnWidths(drm), widths);
}

TEST_F(LooksTest, TheListsStayReadableAfterOtherColoursAndSettings) {
    start();
    HWND drm = program().list(kDrm);
    const auto widths = columnWidths(drm);
    SendMessageW(program().window(), WM_SYSCOLORCHANGE, 0, 0);
    expectReadableRows(drm);
    SendMessageW(program().window(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    expectReadableRows(drm);
    EXPECT_EQ(columnWidths(drm), widths);
    ASSERT_TRUE(opensBoxAt(drm, 2, 1));
    expectBoxOnCell(drm, 2, 1);
}

}  // namespace
