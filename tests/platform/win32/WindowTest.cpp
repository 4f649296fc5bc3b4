// The whole program in its real window: actions of a user and the resulting files.
#include "platform/win32/WindowFixture.h"

namespace {

class WindowTest : public WindowFixture {};

TEST_F(WindowTest, ShowsTheListsAndSavesThemUnchanged) {
    start();
    HWND drm = program().list(kDrm);
    EXPECT_EQ(program().columnTexts(drm, 1), (std::vector<std::wstring>{L"Charlie", L"alpha", L"Bravo"}));
    EXPECT_EQ(program().cell(drm, 2, 3), L"06:00-07:30");
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 3"));
    EXPECT_EQ(program().cell(showAm(), 1, 3), L"LW");
    EXPECT_EQ(program().cell(showFm(), 1, 1), L"\u7535\u53F0");
    EXPECT_EQ(program().cell(program().list(kFm), 1, 2), L"98.5");
    EXPECT_EQ(program().cell(showFavourites(), 1, 2), L"98.5  MHz");
    ASSERT_TRUE(program().close());
    EXPECT_EQ(folder.read("List.ini"), savedFile(totals(3) + drmRecords() + otherRecords()));
    EXPECT_EQ(folder.read("User.ini"), userFile(1, favouriteRecord(0, "City FM", "98500", "FM")));
}

TEST_F(WindowTest, StartsWithoutFilesAndLeavesEmptyLists) {
    std::filesystem::remove(folder.file("List.ini"));
    std::filesystem::remove(folder.file("User.ini"));
    start();
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 0"));
    ASSERT_TRUE(program().close());
    EXPECT_EQ(folder.read("List.ini"), savedFile("[Total]\r\ndrmnumber=0\r\namnumber=0\r\nfmnumber=0\r\n"));
    EXPECT_EQ(folder.read("User.ini"), userFile(0, ""));
}

TEST_F(WindowTest, EnterAndTheLossOfFocusStoreAnEdit) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 2, 2));
    EXPECT_TRUE(statusBecomes(L"Press 'Enter' Key To Save Modify"));
    typeInto(program().box(), L"7000\r");
    EXPECT_TRUE(cellBecomes(drm, 2, 2, L"7000"));
    EXPECT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    ASSERT_TRUE(opensBoxAt(drm, 3, 4));
    typeInto(program().box(), L"Asia");
    program().click(drm, 1, 1);
    EXPECT_TRUE(cellBecomes(drm, 3, 4, L"Asia"));
    EXPECT_TRUE(statusBecomes(L"Press 'Delete' Key To Delete "));
    ASSERT_TRUE(program().close());
    EXPECT_EQ(folder.read("List.ini"),
              savedFile(totals(3) + drmRecord(0, "Charlie", "6095") + drmRecord(1, "alpha", "7000") +
                        drmRecord(2, "Bravo", "9620", "Asia") + otherRecords()));
}

TEST_F(WindowTest, TypingStopsAtTheLimitAndLongTextsStay) {
    folder.write("List.ini", savedFile(totals(1) + drmRecord(0, "A programme of more than ten", "6095")));
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 1, 2));
    typeInto(program().box(), L"1234567");
    EXPECT_TRUE(eventually([&] { return textOf(program().box()) == L"12345"; }));
    typeInto(program().box(), L"\r");
    ASSERT_TRUE(cellBecomes(drm, 1, 2, L"12345"));
    ASSERT_TRUE(opensBoxAt(drm, 1, 1));
    typeInto(program().box(), L"\r");
    EXPECT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    EXPECT_EQ(program().cell(drm, 1, 1), L"A programme of more than ten");
}

TEST_F(WindowTest, AnInvalidTextKeepsTheCell) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 1, 2));
    typeInto(program().box(), L"149\r");
    HWND box = program().dialog(L"Halcyon_K7");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(messageOf(box), L"Out of range: (150--30000) kHz");
    pressButton(box, IDOK);
    EXPECT_TRUE(eventually([&] { return IsWindow(box) == 0; }));
    EXPECT_EQ(program().cell(drm, 1, 2), L"6095");
    EXPECT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
}

TEST_F(WindowTest, ATabSwitchDiscardsAnEdit) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 1, 2));
    typeInto(program().box(), L"7777");
    ASSERT_TRUE(eventually([&] { return textOf(program().box()) == L"7777"; }));
    EXPECT_TRUE(
        pressUntil([] { pressWithCtrl(VK_TAB); }, [&] { return program().status() == L"Total Number Of AM List: 1"; }));
    EXPECT_FALSE(program().boxIsOpen());
    EXPECT_TRUE(eventually([&] { return IsWindowVisible(drm) == 0 && IsWindowVisible(program().list(kAm)) != 0; }));
    EXPECT_EQ(program().cell(drm, 1, 2), L"6095");
    EXPECT_EQ(program().cell(program().list(kAm), 1, 2), L"198");
}

TEST_F(WindowTest, TheBoxIsPlacedOnItsCell) {
    std::string records;
    for (int i = 0; i < 60; ++i) {
        records += drmRecord(i, "Radio " + std::to_string(i), std::to_string(6000 + i));
    }
    folder.write("List.ini", savedFile(totals(60) + records));
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 2, 2));
    expectBoxOnCell(drm, 2, 2);

    SendMessageW(drm, LVM_ENSUREVISIBLE, 59, FALSE);
    ASSERT_TRUE(opensBoxAt(drm, 58, 1));
    expectBoxOnCell(drm, 58, 1);

    SetWindowPos(program().window(), nullptr, 0, 0, 900, 400, SWP_NOMOVE | SWP_NOZORDER);
    ASSERT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    SendMessageW(drm, LVM_ENSUREVISIBLE, 9, FALSE);
    ASSERT_TRUE(opensBoxAt(drm, 10, 2));
    expectBoxOnCell(drm, 10, 2);

    // A dragged column ends the edit and gets its standard width when the next one starts.
    const auto standard = SendMessageW(drm, LVM_GETCOLUMNWIDTH, 0, 0);
    SendMessageW(drm, LVM_SETCOLUMNWIDTH, 0, standard + 60);
    ASSERT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    ASSERT_TRUE(opensBoxAt(drm, 10, 4));
    EXPECT_EQ(SendMessageW(drm, LVM_GETCOLUMNWIDTH, 0, 0), standard);
    expectBoxOnCell(drm, 10, 4);
}

TEST_F(WindowTest, AHeaderClickSortsDescendingFirst) {
    start();
    HWND drm = program().list(kDrm);
    const auto orderBecomes = [&](const std::vector<std::wstring>& order) {
        return eventually([&] { return program().columnTexts(drm, 1) == order; });
    };
    program().clickHeader(drm, 1);
    EXPECT_TRUE(orderBecomes({L"Charlie", L"Bravo", L"alpha"}));
    program().clickHeader(drm, 1);
    EXPECT_TRUE(orderBecomes({L"alpha", L"Bravo", L"Charlie"}));
}

TEST_F(WindowTest, DeletesByKeyAndByMenu) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_NO_FATAL_FAILURE(deleteSecondOfThree(drm));
    EXPECT_EQ(program().columnTexts(drm, 1), (std::vector<std::wstring>{L"Charlie", L"Bravo"}));

    program().rightClick(drm, 2, 1);
    ASSERT_TRUE(eventually([&] { return program().menu() != nullptr; }));
    pressKey('D');
    ASSERT_TRUE(eventually([&] { return program().rowCount(drm) == 1; }));
    EXPECT_EQ(program().columnTexts(drm, 1), (std::vector<std::wstring>{L"Charlie"}));
}

TEST_F(WindowTest, AddsTheSelectedRowToTheFavourites) {
    start();
    HWND favourites = showFavourites();
    showDrm();
    const auto addFirst = [&] {
        // Without Ctrl the letter would select another row.
        program().click(program().list(kDrm), 1, 1);
        EXPECT_TRUE(statusBecomes(L"Press 'Delete' Key To Delete "));
        pressWithCtrl('A');
    };
    ASSERT_TRUE(pressUntil(addFirst, [&] { return program().rowCount(favourites) == 2; }));
    EXPECT_EQ(program().cell(favourites, 2, 2), L"6095  kHz");
    ASSERT_TRUE(program().close());
    EXPECT_EQ(folder.read("User.ini"),
              userFile(2, favouriteRecord(0, "City FM", "98500", "FM") + favouriteRecord(1, "Charlie", "6095", "DRM")));
}

TEST_F(WindowTest, SavesItsOwnCopiesWithoutAReceiver) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 1, 2));
    typeInto(program().box(), L"7000\r");
    ASSERT_TRUE(cellBecomes(drm, 1, 2, L"7000"));
    HWND report = program().dialogBy('S', L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"Can't find disk,please connect DRM receiver to PC");
    EXPECT_NE(folder.read("List.ini").find("Frequency=7000\r\n"), std::string::npos);
    pressButton(report, IDOK);
}

TEST_F(WindowTest, ASecondStartShowsNothingAndTouchesNothing) {
    start();
    const std::string list = folder.read("List.ini");
    Program second(folder);
    EXPECT_TRUE(eventually([&] { return second.hasEnded(); }));
    EXPECT_EQ(second.window(), nullptr);
    EXPECT_EQ(folder.read("List.ini"), list);
    EXPECT_TRUE(program().close());
}

TEST_F(WindowTest, TheEndOfTheSessionSaves) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_NO_FATAL_FAILURE(deleteSecondOfThree(drm));
    EXPECT_NE(SendMessageW(program().window(), WM_QUERYENDSESSION, 0, 0), 0);
    SendMessageW(program().window(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(folder.read("List.ini"),
              savedFile(totals(2) + drmRecord(0, "Charlie", "6095") + drmRecord(1, "Bravo", "9620") + otherRecords()));
}

}  // namespace
