#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "fakes/FakeServices.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/ListsAtStart.h"

namespace {

using Source = ListsAtStart::Source;

constexpr const char16_t* kPath = u"/app/List.ini";
constexpr const char* kKept = "[DRMSchedule0]\r\nProgramme=Kept\r\n";
constexpr const char* kFound = "[DRMSchedule0]\r\nProgramme=Found\r\n";
constexpr const char* kBackedUp = "[DRMSchedule0]\r\nProgramme=Backup\r\n";

class ListsAtStartTest : public testing::Test {
protected:
    ListsAtStart start() { return {ListFileId::List, kPath, last, files, backup}; }
    void expect(Source source, const std::optional<std::string>& lists, const std::optional<std::string>& passedOver) {
        const ListsAtStart found = start();
        EXPECT_EQ(found.source(), source);
        EXPECT_EQ(found.lists(), lists);
        EXPECT_EQ(found.passedOver(), passedOver);
    }

    FakeFiles files;
    FakeClock clock;
    Backup backup{u"/app/", files, clock};
    Snapshot last;
};

}  // namespace

TEST_F(ListsAtStartTest, AWorkingCopyCountsWithoutASnapshot) {
    files.files[kPath] = kFound;
    expect(Source::WorkingCopy, kFound, std::nullopt);
    EXPECT_EQ(start().state(), FileState::of(kFound));
    files.files[kPath] = convertedWorkingCopy(kFound);
    backup.keep(u"List.ini", kBackedUp);
    expect(Source::WorkingCopy, convertedWorkingCopy(kFound), std::nullopt);
}

TEST_F(ListsAtStartTest, TheSnapshotCountsWhileTheWorkingCopyIsAsLeft) {
    last.bytes.list = kKept;
    last.left.list = {FileState::of(kFound)};
    files.files[kPath] = kFound;
    expect(Source::Snapshot, kKept, std::nullopt);
    files.files.erase(kPath);
    expect(Source::Missing, std::nullopt, kKept);
    last.left.list = {FileState()};
    expect(Source::Snapshot, kKept, std::nullopt);
}

TEST_F(ListsAtStartTest, AWorkingCopyChangedSinceCountsAndTheSnapshotIsPassedOver) {
    last.bytes.list = kKept;
    files.files[kPath] = kFound;
    expect(Source::WorkingCopy, kFound, kKept);
}

TEST_F(ListsAtStartTest, TheSnapshotCountsForADamagedWorkingCopy) {
    last.bytes.list = kKept;
    backup.keep(u"List.ini", kBackedUp);
    for (const char* const damaged : {"", " ", "no list"}) {
        files.files[kPath] = damaged;
        expect(Source::Snapshot, kKept, damaged);
    }
    files.unreadable = {kPath};
    expect(Source::Snapshot, kKept, std::nullopt);
    EXPECT_EQ(start().state(), std::nullopt);
}

TEST_F(ListsAtStartTest, ThePartOfAFileIsNoBackup) {
    backup.keepPart(u"List.ini", kBackedUp);
    ASSERT_EQ(files.files.size(), 1U);
    files.files[kPath] = "";
    expect(Source::WorkingCopy, "", std::nullopt);
}

TEST_F(ListsAtStartTest, WithoutASnapshotTheNewestBackupCountsForADamagedWorkingCopy) {
    backup.keep(u"List.ini", "[DRMSchedule0]\r\nProgramme=Older\r\n");
    backup.keep(u"User.ini", "[FAVSchedule0]\r\nProgramme=Other file\r\n");
    backup.keep(u"List.ini", kBackedUp);
    const std::string newest = "no list, but not blank";
    backup.keep(u"List.ini", newest);
    for (const std::string& damaged :
         {std::string(), std::string(kNewWorkingCopy), convertedWorkingCopy(" "), newest}) {
        files.files[kPath] = damaged;
        expect(Source::Backup, kBackedUp, unconvertedWorkingCopy(damaged));
    }
    files.unreadable = {backup.pathOf(backup.copiesOf(u"List.ini")[1])};
    EXPECT_EQ(start().lists(), "[DRMSchedule0]\r\nProgramme=Older\r\n");
}

TEST_F(ListsAtStartTest, ABackupReplacesNeitherAMissingNorAnUnreadableWorkingCopy) {
    backup.keep(u"List.ini", kBackedUp);
    expect(Source::Missing, std::nullopt, std::nullopt);
    EXPECT_EQ(start().state(), FileState());
    files.files[kPath] = kFound;
    files.unreadable = {kPath};
    expect(Source::Unreadable, std::nullopt, std::nullopt);
    EXPECT_EQ(start().state(), std::nullopt);
}

TEST_F(ListsAtStartTest, ADamagedWorkingCopyCountsWhereNothingElseIsKept) {
    files.files[kPath] = "no list";
    expect(Source::WorkingCopy, "no list", std::nullopt);
}
