// Interrupted runs: the form is destroyed without its window being closed.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "fakes/FakePlatform.h"
#include "shell/MainForm.h"

namespace {

constexpr const char16_t* kList = u"/app/List.ini";
constexpr const char16_t* kUser = u"/app/User.ini";
constexpr const char16_t* kRecovery = u"/app/Recovery";
constexpr const char16_t* kBackup = u"/app/Backup/List-20261120T224501Z.ini";

const std::string kTwoStations =
    " \r\n[Total]\r\ndrmnumber=2\r\namnumber=0\r\nfmnumber=0\r\n"
    "[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=\xE4\xB8\xAD\r\nStartStopTimeUTC=06:00-07:00\r\nTarget=EU\r\n"
    "UserDef=0\r\n[DRMSchedule1]\r\nFrequency=7000\r\nProgramme=BB\r\nStartStopTimeUTC=06:00-07:00\r\nTarget=EU\r\n"
    "UserDef=0\r\n\r\n[kvt update end]\r\n";

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

class MainFormRecoveryTest : public testing::Test {
protected:
    MainFormRecoveryTest() { platform->files.files[kList] = kTwoStations; }

    void start() {
        form = std::make_unique<MainForm>(platform->bundle);
        ASSERT_TRUE(form->Form_Load());
    }
    // Starts a new process on the present files.
    void killAndRestart() {
        const FakeFiles files = platform->files;
        form.reset();
        platform = std::make_unique<FakePlatform>();
        platform->files = files;
        platform->files.failing.clear();
        start();
    }
    void close() {
        platform->mainWindow.close();
        form.reset();
    }
    std::u16string programme(int row) { return std::u16string(platform->rows(0).text(row, 1)); }
    void select(int tab, int row) { platform->gridViews[static_cast<std::size_t>(tab)].grid->setSelected(row, true); }
    void choose(MenuItem item) { platform->popupMenu.listener->menuChosen(item); }
    void edit(const std::u16string& text) {
        select(0, 1);
        platform->grid(0).itemDoubleClicked();
        ASSERT_TRUE(platform->editBox.visible);
        platform->editBox.content = text;
        platform->editBox.listener->enterPressed();
    }

    std::unique_ptr<FakePlatform> platform = std::make_unique<FakePlatform>();
    std::unique_ptr<MainForm> form;
};

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
    platform->tabs.click(1);
    choose(MenuItem::AddNew);
    platform->addFormView.at(AddField::txtLabel).text = u"Added";
    platform->addFormView.at(AddField::txtFreq).text = u"198";
    platform->addFormView.listener->saveClicked();
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
    FakeFiles whenTold;
    platform->messageBox.whileShown = [&] { whenTold = platform->files; };
    choose(MenuItem::AddTo);
    platform->files = whenTold;
    killAndRestart();
    ASSERT_EQ(platform->rows(3).rowCount(), 256);
    EXPECT_EQ(platform->rows(3).text(256, 1), u"中");
}

TEST_F(MainFormRecoveryTest, ALoadFromTheReceiverIsKept) {
    platform->connectReceiver(u"/media/rx/");
    platform->files.files[u"/media/rx/List.ini"] = "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=R\r\n";
    platform->files.files[u"/media/rx/User.ini"] = "";
    start();
    choose(MenuItem::LoadFromReceiver);
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
    EXPECT_EQ(platform->files.files[u"/app/Backup/List-20261120T224501Z.ini"], kTwoStations);
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

TEST_F(MainFormRecoveryTest, AFileReplacedAfterAKillCounts) {
    const std::string other = replaced(kTwoStations, "Programme=BB", "Programme=CC");
    start();
    edit(u"Edited");
    platform->files.files[kList] = other;
    killAndRestart();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_EQ(programme(2), u"CC");
    EXPECT_NE(platform->files.files[kBackup].find("Programme=Edited\r\n"), std::string::npos);
    close();
    EXPECT_EQ(platform->files.files[kList], other);
}

TEST_F(MainFormRecoveryTest, FilesRemovedAfterAKillStayRemoved) {
    start();
    edit(u"Edited");
    platform->files.files.erase(kList);
    platform->files.files.erase(kUser);
    killAndRestart();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    EXPECT_NE(platform->files.files[kBackup].find("Programme=Edited\r\n"), std::string::npos);
    EXPECT_EQ(platform->files.list(u"/app/Backup").size(), 1U) << "no copy of favourites without a record";
    close();
    start();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
}

TEST_F(MainFormRecoveryTest, FilesCreatedByAKilledRunMayBeRemoved) {
    platform->files.files.clear();
    start();
    platform->tabs.click(1);
    choose(MenuItem::AddNew);
    platform->addFormView.at(AddField::txtLabel).text = u"Added";
    platform->addFormView.at(AddField::txtFreq).text = u"198";
    platform->addFormView.listener->saveClicked();
    const FakeFiles killed = platform->files;
    killAndRestart();
    EXPECT_EQ(platform->rows(1).rowCount(), 1);
    platform->files = killed;
    platform->files.files.erase(kList);
    platform->files.files.erase(kUser);
    killAndRestart();
    EXPECT_EQ(platform->rows(1).rowCount(), 0);
}

TEST_F(MainFormRecoveryTest, AfterASaveTheFormerFileCountsAsChanged) {
    platform->connectReceiver(u"/media/rx/");
    start();
    edit(u"Edited");
    choose(MenuItem::SaveToReceiver);
    edit(u"Once more");
    const FakeFiles killed = platform->files;
    killAndRestart();
    EXPECT_EQ(programme(1), u"Once more");
    platform->files = killed;
    platform->files.files[kList] = kTwoStations;
    killAndRestart();
    EXPECT_EQ(programme(1), u"中");
}

TEST_F(MainFormRecoveryTest, AFileChangedAfterANormalEndCounts) {
    start();
    edit(u"Edited");
    close();
    platform->files.files[kList] = kTwoStations;
    start();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_NE(platform->files.files[kBackup].find("Programme=Edited\r\n"), std::string::npos);
}

TEST_F(MainFormRecoveryTest, ListsLostByTheMediumAreRestored) {
    for (const std::string& damaged : {std::string(), std::string(4096, '\0'), std::string("\xFF\xFE[\0T", 5)}) {
        platform->files.files[kList] = kTwoStations;
        killAndRestart();
        edit(u"Edited");
        close();
        platform->files.files[kList] = damaged;
        killAndRestart();
        EXPECT_EQ(programme(1), u"Edited") << damaged.size();
        close();
        EXPECT_NE(platform->files.files[kList].find("Programme=Edited\r\n"), std::string::npos);
    }
}

TEST_F(MainFormRecoveryTest, UnreadableListsAreRestored) {
    start();
    edit(u"Edited");
    close();
    platform->files.unreadable = {kList};
    killAndRestart();
    EXPECT_EQ(programme(1), u"Edited");
    platform->files.unreadable.clear();
    close();
    EXPECT_NE(platform->files.files[kList].find("Programme=Edited\r\n"), std::string::npos);
}

TEST_F(MainFormRecoveryTest, ContentFoundInPlaceOfListsIsBackedUp) {
    start();
    close();
    platform->files.files[kList] = "no list file";
    start();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_EQ(platform->files.files[kBackup], "no list file");
}

TEST_F(MainFormRecoveryTest, AFileWithACountOutside16BitsIsKeptBeforeItIsSaved) {
    const std::string file = replaced(kTwoStations, "drmnumber=2", "drmnumber=40000");
    platform->files.files[kList] = file;
    start();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    EXPECT_EQ(platform->files.files[kBackup], file);
    close();
    EXPECT_NE(platform->files.files[kList].find("drmnumber=0\r\n"), std::string::npos);
}

TEST_F(MainFormRecoveryTest, AReceiversFileWithACountOutside16BitsIsKeptToo) {
    const std::string file = replaced(kTwoStations, "drmnumber=2", "drmnumber=-40000");
    platform->connectReceiver(u"/media/rx/");
    platform->files.files[u"/media/rx/List.ini"] = file;
    platform->files.files[u"/media/rx/User.ini"] = "";
    start();
    choose(MenuItem::LoadFromReceiver);
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    const auto copies = platform->files.list(u"/app/Backup");
    EXPECT_TRUE(std::any_of(copies.begin(), copies.end(), [&](const std::u16string& name) {
        return platform->files.files[u"/app/Backup/" + name] == file;
    }));
}

TEST_F(MainFormRecoveryTest, AFirstLoadBacksUpNothing) {
    platform->files.files.clear();
    platform->connectReceiver(u"/media/rx/");
    platform->files.files[u"/media/rx/List.ini"] = kTwoStations;
    platform->files.files[u"/media/rx/User.ini"] = "";
    start();
    choose(MenuItem::LoadFromReceiver);
    EXPECT_EQ(platform->rows(0).rowCount(), 2);
    EXPECT_FALSE(platform->files.folders.contains(u"/app/Backup"));
}
