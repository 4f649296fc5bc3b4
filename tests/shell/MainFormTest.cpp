#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "fakes/FakePlatform.h"
#include "fakes/Text.h"
#include "shell/Design.h"
#include "shell/MainForm.h"

namespace {

constexpr const char16_t* kList = u"/app/List.ini";
constexpr const char16_t* kUser = u"/app/User.ini";

void appendRecords(std::string& text, const char* section, int count, const char* frequency, const char* more) {
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += "[" + std::string(section) + number + "]\r\nFrequency=" + frequency + "\r\nProgramme=Radio " + number +
                "\r\n" + more + "UserDef=0\r\n";
    }
}

std::string listFile(int drm, int am, int fm) {
    std::string text = " \r\n[Total]\r\ndrmnumber=" + std::to_string(drm) + "\r\namnumber=" + std::to_string(am) +
                       "\r\nfmnumber=" + std::to_string(fm) + "\r\n";
    appendRecords(text, "DRMSchedule", drm, "6095", "StartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\n");
    appendRecords(text, "AMSchedule", am, "198", "");
    appendRecords(text, "FMSchedule", fm, "98500", "");
    return text;
}

class MainFormTest : public ::testing::Test {
protected:
    void startWith(int drm, int am, int fm) {
        platform.files.files[kList] = listFile(drm, am, fm);
        start();
    }
    void start() {
        form = std::make_unique<MainForm>(platform.bundle);
        ASSERT_TRUE(form->Form_Load());
    }
    void select(int tab, int row) { platform.gridViews[static_cast<std::size_t>(tab)].grid->setSelected(row, true); }
    // Opens the box over the first cell of the DRM list and types without pressing Enter.
    void typeOver(const std::u16string& text) {
        select(0, 1);
        platform.grid(0).itemDoubleClicked();
        ASSERT_TRUE(platform.editBox.visible);
        platform.editBox.content = text;
    }
    void choose(MenuItem item) { platform.popupMenu.listener->menuChosen(item); }

    FakePlatform platform;
    std::unique_ptr<MainForm> form;
};

TEST_F(MainFormTest, StartingWithoutFilesCreatesBothAndShowsFourEmptyLists) {
    start();
    EXPECT_EQ(platform.files.files[kList], std::string("\xFF\xFE \0", 4));
    EXPECT_EQ(platform.files.files[kUser], std::string("\xFF\xFE \0", 4));
    for (int tab = 0; tab < kListCount; ++tab) {
        EXPECT_EQ(platform.rows(tab).rowCount(), 0);
        EXPECT_EQ(platform.rows(tab).columns().size(), tab == 0 ? 4U : 3U);
        const auto& told = platform.gridViews[static_cast<std::size_t>(tab)].calls;
        EXPECT_EQ(std::count(told.begin(), told.end(), "columnAdded"), tab == 0 ? 4 : 3);
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

TEST_F(MainFormTest, TheDialogAddsToTheListOfTheTabShownLast) {
    startWith(1, 1, 1);
    const auto title = [this] {
        choose(MenuItem::AddNew);
        platform.addFormView.listener->cancelClicked();
        return platform.addFormView.title;
    };
    EXPECT_EQ(title(), u"Add List--[DRM List]");
    platform.tabs.click(1);
    EXPECT_EQ(title(), u"Add List--[AM List]");
    platform.tabs.tab = 2;
    platform.tabs.listener->tabGotFocus();
    EXPECT_EQ(title(), u"Add List--[FM List]");
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

TEST_F(MainFormTest, EachListIsEditedInItsOwnView) {
    platform.files.files[kUser] =
        "[Total]\r\nfavnumber=1\r\n[FAVSchedule0]\r\nProgramme=Radio 0\r\nFrequency=198\r\nTYPE=AM\r\n";
    startWith(1, 1, 1);
    for (int tab = 0; tab < kListCount; ++tab) {
        platform.tabs.click(tab);
        select(tab, 1);
        platform.grid(tab).itemDoubleClicked();
        ASSERT_EQ(platform.editBox.content, u"Radio 0");
        platform.editBox.content = u"Edited";
        platform.editBox.listener->enterPressed();
        EXPECT_EQ(platform.rows(tab).text(1, 1), u"Edited");
        for (int other = 0; other < kListCount; ++other) {
            // Once when its tab was shown, and once after the edit.
            EXPECT_EQ(platform.gridViews[static_cast<std::size_t>(other)].focusCount, other <= tab ? 2 : 0);
        }
    }
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

TEST_F(MainFormTest, AnEditReachesTheReceiver) {
    startWith(0, 1, 0);
    platform.connectReceiver(u"/media/rx/");
    platform.tabs.click(1);
    select(1, 1);
    platform.grid(1).pointerMoved(platform.rows(1).columns()[0].width + 100, 400);
    platform.grid(1).itemDoubleClicked();
    ASSERT_EQ(platform.editBox.content, u"198");
    platform.editBox.content = u"999";
    platform.editBox.listener->enterPressed();
    EXPECT_EQ(platform.rows(1).text(1, 2), u"999");
    EXPECT_EQ(platform.rows(1).text(1, 3), u"MW");
    EXPECT_TRUE(platform.grid(1).keyDown('S', Shift::Ctrl));
    const std::string onReceiver = platform.files.files[u"/media/rx/List.ini"];
    EXPECT_NE(onReceiver.find("[AMSchedule0]\r\nFrequency=999\r\n"), std::string::npos);
    EXPECT_EQ(onReceiver, platform.files.files[kList]);
    EXPECT_EQ(platform.files.files[u"/media/rx/User.ini"], platform.files.files[kUser]);
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

TEST_F(MainFormTest, TheMenuOpensWhereTheGridWasClicked) {
    startWith(3, 0, 0);
    select(0, 2);
    platform.grid(0).rightPressed(2, 700, 800);
    platform.grid(0).pointerMoved(750, 900);
    platform.grid(0).rightButton(750, 900);
    EXPECT_EQ(platform.popupMenu.shownAt, (std::array<double, 3>{0, 750, 900}));
    EXPECT_TRUE(platform.popupMenu.isEnabled(MenuItem::Edt));
    platform.grid(0).menuKey(450);
    EXPECT_EQ(platform.popupMenu.shownAt, (std::array<double, 3>{0, 700, 450}));
}

TEST_F(MainFormTest, ARightClickSelectsItsRowForTheMenu) {
    startWith(3, 0, 0);
    platform.grid(0).rightPressed(3, 700, 900);
    EXPECT_EQ(platform.rows(0).firstSelected(), 3);
}

TEST_F(MainFormTest, TheColumnsFollowTheWindowAndAnOpenEditIsCommitted) {
    startWith(3, 0, 0);
    select(0, 1);
    choose(MenuItem::Edt);
    ASSERT_TRUE(platform.editBox.visible);
    platform.editBox.content = u"Typed";
    platform.gridViews[0].shape.width = 9000;
    platform.grid(0).resized();
    EXPECT_FALSE(platform.editBox.visible);
    EXPECT_EQ(narrow(platform.rows(0).text(1, 1)), "Typed");
    EXPECT_EQ(platform.rows(0).columns()[0].width, 1800);
    platform.grid(0).columnDragged();
    platform.gridViews[0].shape.width = 6000;
    platform.grid(0).resized();
    EXPECT_EQ(platform.rows(0).columns()[0].width, 1800);
}

TEST_F(MainFormTest, TheMenuItemsRunTheirCommands) {
    startWith(3, 0, 0);
    select(0, 2);
    choose(MenuItem::Del);
    EXPECT_EQ(platform.rows(0).rowCount(), 2);
    select(0, 1);
    choose(MenuItem::Edt);
    EXPECT_TRUE(platform.editBox.visible);
    platform.editBox.listener->enterPressed();
    choose(MenuItem::AddTo);
    EXPECT_EQ(platform.rows(3).rowCount(), 1);
    form->AddSelectedToFavourites();
    EXPECT_EQ(platform.rows(3).rowCount(), 2);
    choose(MenuItem::AddNew);
    EXPECT_TRUE(platform.addFormView.isOpen());
    EXPECT_FALSE(platform.mainWindow.enabled);
    platform.addFormView.listener->cancelClicked();
    EXPECT_TRUE(platform.mainWindow.enabled);
}

TEST_F(MainFormTest, MenuItemsForReceiverAndServerReportWhatIsMissing) {
    startWith(3, 0, 0);
    platform.messageBox.expect({u"Can't find disk,please connect DRM receiver to PC"});
    choose(MenuItem::LoadFromReceiver);
    platform.messageBox.expect({u"Can't find disk,please connect DRM receiver to PC"});
    choose(MenuItem::SaveToReceiver);
    platform.httpClient.answer.status = 404;
    platform.messageBox.expect({u"Download failed,Please check the network"});
    choose(MenuItem::SyncInternet);
    platform.messageBox.expect(
        {u"All list will be deleted and can't be recovered", u"Delete all List", BoxStyle::OkCancel, BoxAnswer::Ok});
    choose(MenuItem::DeleteAll);
    EXPECT_EQ(platform.rows(0).rowCount(), 0);
}

TEST_F(MainFormTest, AHeaderClickSortsDescendingFirst) {
    startWith(2, 0, 0);
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 1");
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 0");
}

TEST_F(MainFormTest, AHeaderClickCommitsAnOpenEditBeforeTheRowsMove) {
    startWith(2, 0, 0);
    typeOver(u"Zulu");
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_FALSE(platform.editBox.visible);
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Zulu");
    EXPECT_EQ(platform.rows(0).text(2, 1), u"Radio 1");
}

TEST_F(MainFormTest, TheKeysRunTheirCommands) {
    startWith(2, 0, 0);
    GridListener& keys = platform.grid(0);
    select(0, 1);
    EXPECT_TRUE(keys.keyDown(Key::Right, Shift::None));
    EXPECT_TRUE(keys.keyDown(Key::Enter, Shift::None));
    EXPECT_EQ(platform.editBox.content, u"6095");
    platform.editBox.listener->enterPressed();
    EXPECT_TRUE(keys.keyDown(Key::Left, Shift::None));
    EXPECT_TRUE(keys.keyDown('E', Shift::Ctrl));
    EXPECT_EQ(platform.editBox.content, u"Radio 0");
    platform.editBox.listener->enterPressed();
    EXPECT_TRUE(keys.keyDown('A', Shift::Ctrl));
    EXPECT_EQ(platform.rows(3).rowCount(), 1);
    EXPECT_TRUE(keys.keyDown('N', Shift::Ctrl));
    EXPECT_TRUE(platform.addFormView.isOpen());
    platform.addFormView.listener->cancelClicked();
    EXPECT_TRUE(keys.keyDown('D', Shift::Ctrl));
    EXPECT_EQ(platform.rows(0).rowCount(), 1);
    platform.messageBox.expect({u"Can't find disk,please connect DRM receiver to PC"});
    EXPECT_TRUE(keys.keyDown('L', Shift::Ctrl));
    platform.httpClient.answer.status = 404;
    platform.messageBox.expect({u"Download failed,Please check the network"});
    EXPECT_TRUE(keys.keyDown('I', Shift::Ctrl));
    EXPECT_FALSE(keys.keyDown('X', Shift::None));
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
