// List files that the user, another program or the disk has changed or damaged, and their backups.
#include <algorithm>
#include <string>
#include <string_view>

#include "shell/MainFormRecoveryFixture.h"

namespace {

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

class MainFormBackupTest : public MainFormRecoveryFixture {};

}  // namespace

TEST_F(MainFormBackupTest, AFileReplacedAfterAKillCounts) {
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

TEST_F(MainFormBackupTest, FilesRemovedAfterAKillStayRemoved) {
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

TEST_F(MainFormBackupTest, FilesCreatedByAKilledRunMayBeRemoved) {
    platform->files.files.clear();
    start();
    addRecord();
    const FakeFiles killed = platform->files;
    killAndRestart();
    EXPECT_EQ(platform->rows(1).rowCount(), 1);
    platform->files = killed;
    platform->files.files.erase(kList);
    platform->files.files.erase(kUser);
    killAndRestart();
    EXPECT_EQ(platform->rows(1).rowCount(), 0);
}

TEST_F(MainFormBackupTest, AfterASaveTheFormerFileCountsAsChanged) {
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

TEST_F(MainFormBackupTest, AFileChangedAfterANormalEndCounts) {
    start();
    edit(u"Edited");
    close();
    platform->files.files[kList] = kTwoStations;
    start();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_NE(platform->files.files[kBackup].find("Programme=Edited\r\n"), std::string::npos);
}

TEST_F(MainFormBackupTest, ListsLostByTheMediumAreRestored) {
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

TEST_F(MainFormBackupTest, UnreadableListsAreRestored) {
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

TEST_F(MainFormBackupTest, ContentFoundInPlaceOfListsIsBackedUp) {
    start();
    close();
    platform->files.files[kList] = "no list file";
    start();
    EXPECT_EQ(programme(1), u"中");
    EXPECT_EQ(platform->files.files[kBackup], "no list file");
}

TEST_F(MainFormBackupTest, AFileWithACountOutside16BitsIsKeptBeforeItIsSaved) {
    const std::string file = replaced(kTwoStations, "drmnumber=2", "drmnumber=40000");
    platform->files.files[kList] = file;
    start();
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    EXPECT_EQ(platform->files.files[kBackup], file);
    close();
    EXPECT_NE(platform->files.files[kList].find("drmnumber=0\r\n"), std::string::npos);
}

TEST_F(MainFormBackupTest, AReceiversFileWithACountOutside16BitsIsKeptToo) {
    const std::string file = replaced(kTwoStations, "drmnumber=2", "drmnumber=-40000");
    loadFromReceiver(file);
    EXPECT_EQ(platform->rows(0).rowCount(), 0);
    const auto copies = platform->files.list(u"/app/Backup");
    EXPECT_TRUE(std::any_of(copies.begin(), copies.end(), [&](const std::u16string& name) {
        return platform->files.files[u"/app/Backup/" + name] == file;
    }));
}

TEST_F(MainFormBackupTest, AFirstLoadBacksUpNothing) {
    platform->files.files.clear();
    loadFromReceiver(kTwoStations);
    EXPECT_EQ(platform->rows(0).rowCount(), 2);
    EXPECT_FALSE(platform->files.folders.contains(u"/app/Backup"));
}
