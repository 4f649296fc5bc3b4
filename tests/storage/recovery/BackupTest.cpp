#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "fakes/FakeServices.h"
#include "storage/recovery/Backup.h"

namespace {

using Names = std::vector<std::u16string>;

class BackupTest : public testing::Test {
protected:
    Names names() { return files.list(u"/app/Backup"); }
    std::string content(const std::u16string& name) { return files.files[u"/app/Backup/" + name]; }

    FakeFiles files;
    FakeClock clock;
    Backup backup{u"/app/", files, clock};
};

}  // namespace

TEST_F(BackupTest, TheNameContainsTheTime) {
    backup.keep(u"List.ini", "a");
    clock.time = {2027, 1, 2, 3, 4, 5};
    backup.keep(u"List.ini", "b");
    backup.keep(u"User.ini", "c");
    EXPECT_EQ(names(),
              (Names{u"List-20261120T224501Z.ini", u"List-20270102T030405Z.ini", u"User-20270102T030405Z.ini"}));
    EXPECT_EQ(content(u"List-20270102T030405Z.ini"), "b");
}

TEST_F(BackupTest, UnchangedContentIsNotKeptAgain) {
    backup.keep(u"List.ini", "a");
    backup.keep(u"List.ini", "a");
    EXPECT_EQ(names().size(), 1U);
    backup.keep(u"List.ini", "b");
    backup.keep(u"List.ini", "a");
    EXPECT_EQ(names().size(), 3U) << "only the newest counts";
}

TEST_F(BackupTest, SeveralCopiesOfOneSecondAreNumbered) {
    for (int i = 0; i < 12; ++i) {
        backup.keep(u"List.ini", std::to_string(i));
    }
    EXPECT_EQ(content(u"List-20261120T224501Z.ini"), "0");
    EXPECT_EQ(content(u"List-20261120T224501Z-2.ini"), "1");
    EXPECT_EQ(content(u"List-20261120T224501Z-12.ini"), "11");
    backup.keep(u"List.ini", "11");
    EXPECT_EQ(names().size(), 12U) << "the twelfth is newer than the second";
}

TEST_F(BackupTest, AfterAClockIsSetBackNewCopiesStillSortLast) {
    backup.keep(u"List.ini", "a");
    clock.time.year = 2020;
    backup.keep(u"List.ini", "b");
    EXPECT_EQ(names(), (Names{u"List-20261120T224501Z-2.ini", u"List-20261120T224501Z.ini"}));
    backup.keep(u"List.ini", "b");
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(BackupTest, TheNewestThirtyStay) {
    for (int i = 0; i < 100; ++i) {
        clock.time.minute = i / 60;
        clock.time.second = i % 60;
        backup.keep(u"List.ini", std::to_string(i));
        backup.keep(u"User.ini", std::to_string(i));
    }
    EXPECT_EQ(names().size(), 60U);
    EXPECT_EQ(content(names().front()), "70");
    EXPECT_EQ(content(names().back()), "99");
}

TEST_F(BackupTest, OtherFilesAreNotTouched) {
    const Names own = {u"List-.ini",
                       u"List-20261120T224501Z-.ini",
                       u"List-20261120T224501Z-x.ini",
                       u"List-20261120T224501Z-9999999.ini",
                       u"List-20261120T224501Z_2.ini",
                       u"List-20261120T224501Z02.ini",
                       u"List-20261120T2245012.ini",
                       u"List-mine.ini",
                       u"List.ini",
                       u"List-20261120T224501Z.txt"};
    for (const std::u16string& name : own) {
        files.files[u"/app/Backup/" + name] = "mine";
    }
    for (int i = 0; i < 40; ++i) {
        backup.keep(u"List.ini", std::to_string(i));
    }
    for (const std::u16string& name : own) {
        EXPECT_EQ(content(name), "mine");
    }
    EXPECT_EQ(names().size(), own.size() + Backup::kCopies);
}

TEST_F(BackupTest, OnlyUnfinishedCopiesAreLeftovers) {
    backup.keep(u"List.ini", "a");
    files.files[u"/app/Backup/LIST-20261120T224502Z.K7N"] = "half";
    files.files[u"/app/LIST.K7N"] = "of another folder";
    backup.removeLeftovers();
    EXPECT_EQ(names(), Names{u"List-20261120T224501Z.ini"});
    EXPECT_TRUE(files.files.contains(u"/app/LIST.K7N"));
}

TEST_F(BackupTest, ANumberHasUpToSixDigits) {
    files.files[u"/app/Backup/List-20261120T224501Z-999999.ini"] = "a";
    files.files[u"/app/Backup/List-20261120T224501Z-1000000.ini"] = "b";
    const auto copies = backup.copiesOf(u"List.ini");
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_EQ(copies[0].count, 999'999);
}

TEST_F(BackupTest, AListFileWithoutARecordIsNotKept) {
    backup.keep(u"List.ini", "\xEF\xBB\xBF ");
    backup.keep(u"List.ini", " \r\n[Total]\r\ndrmnumber=0\r\n");
    EXPECT_TRUE(files.folders.empty());
    backup.keep(u"List.ini", "[Total]\r\ndrmnumber=40000\r\n[DRMSchedule0]\r\n");
    EXPECT_EQ(names().size(), 1U) << "the count does not matter";
}

TEST_F(BackupTest, AFailureLeavesTheOldCopies) {
    backup.keep(u"List.ini", "a");
    clock.time.second = 2;
    files.failing = {u"/app/Backup/LIST-20261120T224502Z.K7N"};
    backup.keep(u"List.ini", "b");
    EXPECT_EQ(names(), Names{u"List-20261120T224501Z.ini"});
    files.failing = {u"/app/Backup"};
    backup.keep(u"List.ini", "b");
    EXPECT_EQ(names(), Names{u"List-20261120T224501Z.ini"});
}

TEST_F(BackupTest, CopiesAreListedFromTheOldestToTheNewest) {
    backup.keep(u"List.ini", "a");
    backup.keep(u"List.ini", "b");
    backup.keep(u"User.ini", "c");
    clock.time.year = 2027;
    backup.keep(u"List.ini", "d");
    std::vector<std::u16string> ids;
    for (const Backup::Copy& copy : backup.copiesOf(u"List.ini")) {
        ids.push_back(copy.id());
    }
    EXPECT_EQ(ids, (Names{u"20261120T224501Z", u"20261120T224501Z-2", u"20271120T224501Z"}));
    EXPECT_EQ(files.files[backup.pathOf(backup.copiesOf(u"List.ini").back())], "d");
    EXPECT_EQ(backup.copiesOf(u"User.ini").size(), 1U);
}

TEST_F(BackupTest, APartOfAFileIsNoCopyOfIt) {
    backup.keepPart(u"List.ini", "half");
    EXPECT_EQ(names(), (Names{u"List.part-20261120T224501Z.ini"}));
    EXPECT_EQ(content(names().front()), "half");
    EXPECT_TRUE(backup.copiesOf(u"List.ini").empty());
    EXPECT_TRUE(backup.copies().list.empty());
    backup.keep(u"List.ini", "whole");
    EXPECT_EQ(backup.copiesOf(u"List.ini").size(), 1U);
    EXPECT_EQ(backup.copiesOf(u"List.ini").front().name, u"List-20261120T224501Z.ini");
    backup.keepPart(u"List.ini", "half");
    EXPECT_EQ(names().size(), 2U) << "the same part again";
    backup.keepPart(u"User.ini", "");
    EXPECT_EQ(names().size(), 2U) << "nothing was read";
    for (std::size_t i = 0; i < 2 * Backup::kCopies; ++i) {
        backup.keepPart(u"List.ini", std::to_string(i));
    }
    EXPECT_EQ(names().size(), 1 + Backup::kCopies);
    EXPECT_TRUE(files.files.contains(u"/app/Backup/List-20261120T224501Z.ini"));
}
