#include <algorithm>

#include "shell/MainFormFixture.h"

namespace {

class MainFormTest : public MainFormFixture {};

TEST_F(MainFormTest, StartingWithoutFilesCreatesBothAndShowsFourEmptyLists) {
    start();
    EXPECT_EQ(platform.files.files[kList], std::string("\xFF\xFE \0", 4));
    EXPECT_EQ(platform.files.files[kUser], std::string("\xFF\xFE \0", 4));
    for (int tab = 0; tab < kListCount; ++tab) {
        EXPECT_EQ(platform.rows(tab).rowCount(), 0);
        EXPECT_EQ(platform.rows(tab).columns().size(), tab == 0 ? 4U : 3U);
        const auto& calls = platform.gridViews[static_cast<std::size_t>(tab)].calls;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "columnAdded"), tab == 0 ? 4 : 3);
    }
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 0");
}

TEST_F(MainFormTest, AReadOnlyListFileIsMadeWritableAtStart) {
    platform.files.readOnly.insert(kList);
    startWith(1, 0, 0);
    EXPECT_FALSE(platform.files.readOnly.contains(kList));
    EXPECT_EQ(platform.files.files[kList].substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(platform.rows(0).rowCount(), 1);
}

TEST_F(MainFormTest, ASecondInstanceShowsNothingAndTouchesNoFile) {
    platform.files.files[kList] = listFile(1, 1, 1);
    const auto before = platform.files.files;
    platform.singleInstance.running = true;
    MainForm second(platform.bundle);
    EXPECT_FALSE(second.Form_Load());
    EXPECT_FALSE(platform.mainWindow.open);
    EXPECT_EQ(platform.files.files, before);
    EXPECT_TRUE(platform.files.accesses.empty());
    EXPECT_TRUE(platform.statusBar.history.empty());
}

TEST_F(MainFormTest, TheTotalsLineCountsTheShownListOnly) {
    startWith(3, 12, 2);
    EXPECT_EQ(platform.statusBar.history, std::vector<std::u16string>{u"Total Number Of DRM List: 3"});
    platform.tabs.click(1);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of AM List: 12");
    platform.tabs.tab = 2;
    platform.tabs.listener->tabGotFocus();
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of FM List: 2");
    platform.tabs.click(3);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of Favourite List: 0");
}

TEST_F(MainFormTest, ACurrentTabBelongsToItsWindow) {
    startWith(1, 1, 1);
    platform.tabs.click(2);
    FakePlatform second;
    MainForm other(second.bundle);
    ASSERT_TRUE(other.Form_Load());
    choose(MenuItem::AddNew);
    EXPECT_EQ(platform.addFormView.title, u"Add List--[FM List]");
}

TEST_F(MainFormTest, SwitchingTabsDiscardsAnEdit) {
    startWith(2, 5, 0);
    typeOver(u"changed");
    platform.tabs.click(1);
    EXPECT_FALSE(platform.editBox.visible);
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 0");
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of AM List: 5");
}

TEST_F(MainFormTest, ALossOfFocusCommitsAnEdit) {
    startWith(1, 0, 0);
    typeOver(u"Focus");
    platform.editBox.listener->lostFocus();
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Focus");
}

TEST_F(MainFormTest, AListThatMovesWhenItsTabIsShownCommitsNoEditOfAnother) {
    startWith(2, 5, 0);
    typeOver(u"changed");
    const std::u16string below(platform.rows(1).text(1, 1));
    platform.tabs.tab = 1;  // not reported yet
    platform.grid(1).viewChanged();
    EXPECT_FALSE(platform.editBox.visible);
    platform.tabs.listener->tabClicked();
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 0");
    EXPECT_EQ(platform.rows(1).text(1, 1), below);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of AM List: 5");
}

TEST_F(MainFormTest, TheCurrentListGetsTheFocusUnlessTheTabBarHasIt) {
    startWith(1, 1, 1);
    platform.tabs.click(1);
    EXPECT_EQ(platform.gridViews[1].focusCount, 1);
    platform.tabs.focused = true;
    platform.tabs.click(2);
    EXPECT_EQ(platform.gridViews[2].focusCount, 0);
    EXPECT_EQ(platform.gridViews[1].focusCount, 1);
}

TEST_F(MainFormTest, DeletingKeepsTheTotalUntilTheWindowGetsTheFocus) {
    startWith(2, 0, 0);
    select(0, 1);
    EXPECT_TRUE(platform.grid(0).keyDown(Key::Delete, Shift::None));
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 2");
    platform.mainWindow.listener->windowGotFocus(CameFrom::Elsewhere);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 1");
}

TEST_F(MainFormTest, ReturningFromAnOwnBoxKeepsTheStatus) {
    startWith(2, 0, 0);
    platform.statusBar.setMessage(u"hint");
    platform.mainWindow.listener->windowGotFocus(CameFrom::OwnBox);
    EXPECT_EQ(platform.statusBar.message, u"hint");
    platform.mainWindow.listener->windowGotFocus(CameFrom::Elsewhere);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 2");
}

TEST_F(MainFormTest, TheStatusOfADownloadStaysWhenTheWindowGetsTheFocus) {
    startWith(1, 0, 0);
    std::u16string status;
    platform.httpClient.during = [&] {
        platform.mainWindow.listener->windowGotFocus(CameFrom::Elsewhere);
        status = platform.statusBar.message;
    };
    platform.httpClient.answer.status = 404;
    platform.messageBox.expect({u"Download failed,Please check the network"});
    choose(MenuItem::SyncInternet);
    EXPECT_EQ(status, u"Downloading,Please wait...");
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 1");
    platform.statusBar.setMessage(u"hint");
    platform.mainWindow.listener->windowGotFocus(CameFrom::Elsewhere);
    EXPECT_EQ(platform.statusBar.message, u"Total Number Of DRM List: 1") << "the download is over";
}

TEST_F(MainFormTest, ClosingSavesTheListsInUtf8) {
    startWith(1, 1, 1);
    platform.mainWindow.close();
    EXPECT_EQ(platform.files.files[kList].find("[Total]\r\ndrmnumber=1\r\n"), 3U);
    EXPECT_NE(platform.files.files[kList].find("\r\n[kvt update end]\r\n"), std::string::npos);
    EXPECT_NE(platform.files.files[kUser].find("Station=21000\r\n"), std::string::npos);
}

TEST_F(MainFormTest, ClosingClearsTheAttributesOfTheFavouritesFileAfterSavingIt) {
    startWith(1, 1, 1);
    platform.files.accesses.clear();
    platform.mainWindow.close();
    const std::vector<std::string>& accesses = platform.files.accesses;
    const auto saved = std::find(accesses.begin(), accesses.end(), "onto /app/User.ini");
    ASSERT_NE(saved, accesses.end());
    EXPECT_NE(std::find(saved, accesses.end(), "clearAttributes /app/User.ini"), accesses.end());
}

TEST_F(MainFormTest, ClosingWhileEditingKeepsWhatWasTyped) {
    startWith(1, 0, 0);
    select(0, 1);
    platform.grid(0).itemDoubleClicked();
    ASSERT_TRUE(platform.editBox.visible);
    platform.editBox.content = u"New Name";
    platform.mainWindow.close();
    EXPECT_NE(platform.files.files[kList].find("Programme=New Name\r\n"), std::string::npos);
}

TEST_F(MainFormTest, ASecondReportOfClosingSavesNothing) {
    startWith(1, 0, 0);
    platform.mainWindow.listener->windowClosing();
    platform.files.files[kList] = "of the next program";
    platform.mainWindow.listener->windowClosing();
    EXPECT_EQ(platform.files.files[kList], "of the next program");
}

TEST_F(MainFormTest, QuittingClosesTheWindowAndTheDialog) {
    startWith(1, 0, 0);
    choose(MenuItem::AddNew);
    ASSERT_TRUE(platform.addFormView.isOpen());
    form->QuitApplication();
    EXPECT_FALSE(platform.mainWindow.open);
    EXPECT_FALSE(platform.addFormView.isOpen());
}

}  // namespace
