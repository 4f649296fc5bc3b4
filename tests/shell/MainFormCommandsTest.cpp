#include <array>

#include "fakes/Text.h"
#include "shell/MainFormFixture.h"

namespace {

class MainFormCommandsTest : public MainFormFixture {};

TEST_F(MainFormCommandsTest, TheDialogAddsToTheListOfTheTabShownLast) {
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

TEST_F(MainFormCommandsTest, EachListIsEditedInItsOwnView) {
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

TEST_F(MainFormCommandsTest, AnEditReachesTheReceiver) {
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

TEST_F(MainFormCommandsTest, TheMenuOpensWhereTheGridWasClicked) {
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

TEST_F(MainFormCommandsTest, ARightClickSelectsItsRowForTheMenu) {
    startWith(3, 0, 0);
    platform.grid(0).rightPressed(3, 700, 900);
    EXPECT_EQ(platform.rows(0).firstSelected(), 3);
}

TEST_F(MainFormCommandsTest, TheColumnsFollowTheWindowAndAnOpenEditIsCommitted) {
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

TEST_F(MainFormCommandsTest, TheMenuItemsRunTheirCommands) {
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

TEST_F(MainFormCommandsTest, MenuItemsForReceiverAndServerReportWhatIsMissing) {
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

TEST_F(MainFormCommandsTest, AHeaderClickSortsDescendingFirst) {
    startWith(2, 0, 0);
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 1");
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Radio 0");
}

TEST_F(MainFormCommandsTest, AHeaderClickCommitsAnOpenEditBeforeTheRowsMove) {
    startWith(2, 0, 0);
    typeOver(u"Zulu");
    platform.grid(0).headerClicked(u"PROG");
    EXPECT_FALSE(platform.editBox.visible);
    EXPECT_EQ(platform.rows(0).text(1, 1), u"Zulu");
    EXPECT_EQ(platform.rows(0).text(2, 1), u"Radio 1");
}

TEST_F(MainFormCommandsTest, TheKeysRunTheirCommands) {
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

}  // namespace
