#include <gtest/gtest.h>

#include "fakes/FakePlatform.h"
#include "shell/StartUp.h"
#include "storage/stations/RowStore.h"

namespace {

constexpr const char16_t* kList = u"/app/List.ini";
constexpr const char16_t* kUser = u"/app/User.ini";

class StartUpTest : public ::testing::Test {
protected:
    void run(std::u16string_view mode) { startUp.run(mode); }

    FakePlatform platform;
    std::array<RowStore, 4> rows{RowStore(platform.gridViews[0]), RowStore(platform.gridViews[1]),
                                 RowStore(platform.gridViews[2]), RowStore(platform.gridViews[3])};
    WorkingCopies copies{kList, kUser};
    std::u16string receiverRoot = u"/rx/";
    ReceiverSettings settings;
    mMsgBox msgBox{platform.messageBox, platform.windowHook};
    mFindDiskDriver driver{platform.volumes, platform.files};
    Totals totals{platform.tabs, platform.statusBar, {&rows[0], &rows[1], &rows[2], &rows[3]}};
    StationLists lists{{StationList{ListKind::Drm, rows[0], platform.gridViews[0]},
                        StationList{ListKind::Am, rows[1], platform.gridViews[1]},
                        StationList{ListKind::Fm, rows[2], platform.gridViews[2]},
                        StationList{ListKind::Favourite, rows[3], platform.gridViews[3]}}};
    ListLoader loader{lists, copies, settings, platform.files, platform.codePages};
    ListSaver saver{lists, copies, settings, platform.files, platform.codePages};
    Backup backup{u"/app/", platform.files, platform.clock};
    ReceiverFiles receiverFiles{driver, receiverRoot, platform.files, backup};
    Recovery recovery{u"/app/", platform.files};
    ListStorage storage{copies, loader, saver, recovery, backup};
    ReceiverCopies receiverCopies{lists, storage, receiverFiles, {msgBox, totals}, platform.files};
    StartUp startUp{storage, receiverCopies, driver, {platform.files, platform.codePages}};
};

TEST_F(StartUpTest, ALocalRunCreatesMissingFilesAndIgnoresTheReceiver) {
    platform.files.files[u"/rx/List.ini"] = "[Total]\r\namnumber=1\r\n";
    run(u"LocalRun");
    EXPECT_EQ(platform.files.files[kList], std::string("\xFF\xFE \0", 4));
    EXPECT_EQ(platform.files.files[kUser], std::string("\xFF\xFE \0", 4));
    for (const std::string& access : platform.files.accesses) {
        EXPECT_EQ(access.find("/rx/"), std::string::npos) << access;
    }
}

TEST_F(StartUpTest, TheWorkingCopiesAreConvertedToUtf16) {
    platform.files.files[kList] = "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=\xD0\x96\r\n";
    run(u"LocalRun");
    EXPECT_EQ(platform.files.files[kList].substr(0, 4), std::string("\xFF\xFE[\0", 4));
    EXPECT_EQ(rows[1].text(1, 1), u"\u0416");
}

TEST_F(StartUpTest, AListFileThatTheMediumHasEmptiedComesBackFromTheBackup) {
    platform.files.files[kList] = "";
    platform.files.files[u"/app/Backup/List-20250101T000000Z.ini"] =
        "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=B\r\n";
    run(u"LocalRun");
    EXPECT_EQ(rows[1].text(1, 1), u"B");
    EXPECT_TRUE(platform.files.files[kList].starts_with(std::string("\xFF\xFE[\0", 4)));
}

TEST_F(StartUpTest, ANormalRunTakesTheReceiversFilesFirst) {
    platform.files.files[kList] = "[Total]\r\namnumber=0\r\n";
    platform.files.readOnly.insert(kList);
    platform.files.files[u"/rx/List.ini"] = "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nFrequency=198\r\n";
    platform.files.files[u"/rx/User.ini"] = "[LAST]\r\nStation=999\r\n";
    run(u"NormalRun");
    EXPECT_EQ(rows[1].text(1, 2), u"198");
    EXPECT_EQ(settings.LastStation, u"999");
}

TEST_F(StartUpTest, ANormalRunNamesEachMissingFileAndContinues) {
    platform.files.files[kList] = "[Total]\r\namnumber=1\r\n";
    platform.messageBox.expect({u"Can't find any file: /rx/List.ini!Please confirm whether the file is exist"});
    platform.messageBox.expect({u"Can't find any file: /rx/User.ini!Please confirm whether the file is exist"});
    run(u"NormalRun");
    EXPECT_EQ(rows[1].rowCount(), 1);
    EXPECT_FALSE(platform.files.files.contains(kUser));
}

TEST_F(StartUpTest, ASnapshotThatTheRunBeforeCouldNotReadIsBackedUp) {
    const std::string unread = "[DRMSchedule0]\r\nProgramme=Unread\r\n";
    Recovery(u"/app/", platform.files).keep({unread, std::nullopt});
    platform.files.unreadable = {u"/app/Recovery/Snapshot1"};
    Recovery before(u"/app/", platform.files);
    before.find();
    before.keep({"[DRMSchedule0]\r\nProgramme=Later\r\n", std::nullopt});
    platform.files.unreadable.clear();
    run(u"LocalRun");
    const auto kept = backup.copiesOf(u"List.ini");
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(platform.files.files[backup.pathOf(kept.front())], unread);
}

TEST_F(StartUpTest, ASnapshotThatWasSetAsideIsBackedUp) {
    const std::string unread = "[DRMSchedule0]\r\nProgramme=Unread\r\n";
    Recovery(u"/app/", platform.files).keep({unread, std::nullopt});
    platform.files.rename(u"/app/Recovery/Snapshot1", u"/app/Recovery/Unread", Flush::Now);
    run(u"LocalRun");
    EXPECT_EQ(rows[0].rowCount(), 0) << "never restored";
    const auto kept = backup.copiesOf(u"List.ini");
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(platform.files.files[backup.pathOf(kept.front())], unread);
}

TEST_F(StartUpTest, AFolderInPlaceOfTheListFileGivesEmptyLists) {
    platform.files.folders.insert(kList);
    run(u"LocalRun");
    EXPECT_EQ(rows[0].rowCount(), 0);
    EXPECT_EQ(rows[0].columns().size(), 4U);
}

}  // namespace
