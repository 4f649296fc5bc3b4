// Interrupted runs: the form is destroyed without its window being closed.
#include "shell/MainFormRecoveryFixture.h"

namespace {

constexpr const char16_t* kRecovery = u"/app/Recovery";

class MainFormRecoveryTest : public MainFormRecoveryFixture {};

}  // namespace

TEST_F(MainFormRecoveryTest, ANormalEndKeepsTheLastSnapshotOnly) {
    start();
    edit(u"Edited");
    close();
    EXPECT_EQ(platform->files.folders, std::set<std::u16string>{kRecovery});
    EXPECT_EQ(platform->files.files.size(), 3U) << "both files and a snapshot";
}

TEST_F(MainFormRecoveryTest, TheUtf16FilesOfAKilledRunAreDecoded) {
    start();
    ASSERT_TRUE(platform->files.files[kList].starts_with("\xFF\xFE"));
    killAndRestart();
    EXPECT_EQ(programme(1), u"中");
    close();
    EXPECT_EQ(platform->files.files[kList], kTwoStations);
}

TEST_F(MainFormRecoveryTest, EveryCommandIsKept) {
    start();
    edit(u"Edited");
    killAndRestart();
    EXPECT_EQ(programme(1), u"Edited");

    platform->grid(0).headerClicked(u"FREQ");
    const std::u16string first = programme(1);
    killAndRestart();
    EXPECT_EQ(programme(1), first);

    select(0, 1);
    choose(MenuItem::AddTo);
    killAndRestart();
    EXPECT_EQ(platform->rows(3).text(1, 1), first);

    select(0, 1);
    EXPECT_TRUE(platform->grid(0).keyDown(Key::Delete, 0));
    killAndRestart();
    EXPECT_EQ(platform->rows(0).rowCount(), 1);
    EXPECT_NE(programme(1), first);

    platform->messageBox.expect(
        {u"All list will be deleted and can't be recovered", u"Delete all List", BoxStyle::OkCancel, BoxAnswer::Ok});
    choose(MenuItem::DeleteAll);
    killAndRestart();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    EXPECT_EQ(platform->rows(3).rowCount(), 1);
}

TEST_F(MainFormRecoveryTest, AnAddedRecordIsKept) {
    start();
    addRecord();
    killAndRestart();
    EXPECT_EQ(platform->rows(1).text(1, 1), u"Added");
}

TEST_F(MainFormRecoveryTest, ASyncIsKeptBeforeItsMessage) {
    start();
    platform->httpClient.answer.body = "[DRMSchedule]\r\nx\r\nx\r\nx\r\nx\r\nx\r\nx\r\nx\r\nx\r\n";
    platform->messageBox.expect({u"No new station"});
    platform->messageBox.whileShown = [this] {
        EXPECT_NE(platform->files.files[u"/app/Recovery/Snapshot2"].find("drmnumber=0"), std::string::npos);
    };
    choose(MenuItem::SyncInternet);
    killAndRestart();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
}

TEST_F(MainFormRecoveryTest, AddedFavouritesAreKeptBeforeTheMessageAboutAFullList) {
    start();
    for (int i = 0; i < 255; ++i) {
        platform->gridViews[3].grid->appendRow({u"Full", u"6000  kHz", u"DRM"});
    }
    select(0, 1);
    select(0, 2);
    platform->messageBox.expect({u"Max number of each list is 256!"});
    FakeFiles whenShown;
    platform->messageBox.whileShown = [&] { whenShown = platform->files; };
    choose(MenuItem::AddTo);
    platform->files = whenShown;
    killAndRestart();
    ASSERT_EQ(platform->rows(3).rowCount(), 256);
    EXPECT_EQ(platform->rows(3).text(256, 1), u"中");
}

TEST_F(MainFormRecoveryTest, ALoadFromTheReceiverIsKept) {
    loadFromReceiver("[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=R\r\n");
    killAndRestart();
    EXPECT_EQ(platform->rows(1).text(1, 1), u"R");
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
}

TEST_F(MainFormRecoveryTest, AViewChangeDuringACommandKeepsNothing) {
    start();
    // Clearing a list scrolls it back; the last snapshot must remain until the command ends.
    platform->gridViews[0].grid->clear();
    platform->grid(0).viewChanged();
    killAndRestart();
    EXPECT_EQ(platform->rows(0).rowCount(), 2);
}

TEST_F(MainFormRecoveryTest, AFailedSaveAtTheEndWaitsForTheNextStart) {
    start();
    edit(u"Edited");
    platform->files.failing = {u"/app/LIST.K7N", u"/app/USER.K7N"};
    platform->mainWindow.close();
    killAndRestart();
    EXPECT_EQ(programme(1), u"Edited");
}

TEST_F(MainFormRecoveryTest, ATextTypedAtTheEndIsKeptWhenItCannotBeSaved) {
    start();
    select(0, 1);
    platform->grid(0).itemDoubleClicked();
    platform->editBox.content = u"Typed last";
    platform->files.failing = {u"/app/LIST.K7N"};
    platform->mainWindow.close();
    killAndRestart();
    EXPECT_EQ(programme(1), u"Typed last");
}

TEST_F(MainFormRecoveryTest, WithoutASnapshotTheFilesAreConverted) {
    platform->files.files[kRecovery] = "a file, not the folder";
    start();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_TRUE(platform->files.files[kList].starts_with("\xFF\xFE"));
    EXPECT_EQ(platform->files.files[kBackup], kTwoStations);
    killAndRestart();
    EXPECT_EQ(programme(1), u"中") << "the UTF-16 that a killed run has left is read as UTF-16";
}

TEST_F(MainFormRecoveryTest, AFileThatCannotBeConvertedIsShownDecoded) {
    platform->files.failing = {u"/app/LIST.K7N"};
    start();
    EXPECT_EQ(programme(1), u"中");
}

TEST_F(MainFormRecoveryTest, AFileThatCannotBeReadIsNeverWrittenOver) {
    platform->connectReceiver(u"/media/rx/");
    platform->files.files[u"/media/rx/List.ini"] = "the receiver's";
    platform->files.failing = {kList};
    start();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    platform->files.failing.clear();
    choose(MenuItem::SaveToReceiver);
    EXPECT_EQ(platform->files.files[u"/media/rx/List.ini"], "the receiver's");
    close();
    EXPECT_EQ(platform->files.files[kList], kTwoStations);
    start();
    EXPECT_EQ(programme(1), u"中");
}

TEST_F(MainFormRecoveryTest, AfterALoadFromTheReceiverAnUnreadFileIsSavedAgain) {
    platform->connectReceiver(u"/media/rx/");
    platform->files.files[u"/media/rx/List.ini"] = "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=R\r\n";
    platform->files.files[u"/media/rx/User.ini"] = "";
    platform->files.failing = {kList};
    start();
    platform->files.failing.clear();
    choose(MenuItem::LoadFromReceiver);
    close();
    EXPECT_NE(platform->files.files[kList].find("Programme=R\r\n"), std::string::npos);
}

TEST_F(MainFormRecoveryTest, LeftoversOfAKilledSaveAreRemovedAtTheNextStart) {
    platform->files.files[u"/app/LIST.K7N"] = "half";
    platform->files.files[u"/app/USER.K7N"] = "half";
    start();
    EXPECT_FALSE(platform->files.files.contains(u"/app/LIST.K7N"));
    EXPECT_FALSE(platform->files.files.contains(u"/app/USER.K7N"));
    EXPECT_EQ(programme(1), u"中");
}

TEST_F(MainFormRecoveryTest, ListsThatCannotBeWrittenBackAreShownAndKept) {
    start();
    edit(u"Edited");
    const FakeFiles files = platform->files;
    form.reset();
    platform = std::make_unique<FakePlatform>();
    platform->files = files;
    platform->files.failing = {u"/app/LIST.K7N"};
    start();
    EXPECT_EQ(programme(1), u"Edited");
    platform->files.failing.clear();
    close();
    EXPECT_NE(platform->files.files[kList].find("Programme=Edited\r\n"), std::string::npos);
}
