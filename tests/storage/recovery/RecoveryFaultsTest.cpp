// Snapshots on a disk that fails: writes that are not complete, files that cannot be read.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fakes/FakeFiles.h"
#include "fakes/ForwardingFiles.h"
#include "storage/recovery/Recovery.h"

namespace {

constexpr const char16_t* kFirst = u"/app/Recovery/Snapshot1";
constexpr const char16_t* kSecond = u"/app/Recovery/Snapshot2";
constexpr const char16_t* kUnread = u"/app/Recovery/Unread";
constexpr int kMoreThanFitBehindOne = 300;  // changes

// Writes that store all bytes may report a failure.
class FailedClose : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        return ForwardingFiles::write(path, bytes, flush) && !fails;
    }
    bool fails = false;
};

// Calls back with what a power cut during each write leaves.
class TornWrites : public ForwardingFiles {
public:
    TornWrites(FakeFiles& files, std::function<void(FakeFiles&)> check)
        : ForwardingFiles(files), disk_(files), check_(std::move(check)) {}
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        FakeFiles left = disk_;
        left.files[std::u16string(path)] = bytes.substr(0, bytes.size() / 2);
        check_(left);
        return ForwardingFiles::write(path, bytes, flush);
    }

private:
    FakeFiles& disk_;
    std::function<void(FakeFiles&)> check_;
};

class RecoveryFaultsTest : public testing::Test {
protected:
    // What the next run reads.
    std::optional<WorkingCopyBytes> found() {
        const auto snapshot = Recovery(u"/app/", files).find();
        return snapshot ? std::optional(snapshot->bytes) : std::nullopt;
    }

    FakeFiles files;
    Recovery recovery{u"/app/", files};
    const WorkingCopyBytes one{"list 1", "user 1"};
    const WorkingCopyBytes two{"list 2", "user 2"};
    const WorkingCopyBytes three{"list 3", "user 3"};
};

}  // namespace

// Closing fails: the snapshot may be whole, but a start must not find what was reported as failed.
TEST_F(RecoveryFaultsTest, ASnapshotWhoseWriteFailedIsRemoved) {
    FailedClose failedClose(files);
    failedClose.fails = true;
    EXPECT_FALSE(Recovery(u"/app/", failedClose).keep(one));
    EXPECT_EQ(found(), std::nullopt);
}

TEST_F(RecoveryFaultsTest, TheNameOfASnapshotAfterAFailedWriteSurvivesAPowerCut) {
    FailedClose failedClose(files);
    Recovery failing(u"/app/", failedClose);
    failing.keep(one);
    failing.keep(two);
    failedClose.fails = true;
    failing.keep(three);
    failedClose.fails = false;
    files.files[kSecond] = "torn";
    EXPECT_TRUE(failing.keep(one));
    files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryFaultsTest, EachNameIsMadeDurableOnce) {
    class CountedFlushes : public ForwardingFiles {
    public:
        using ForwardingFiles::ForwardingFiles;
        bool flushFolderOf(std::u16string_view path) override {
            flushed.emplace_back(path);
            return ForwardingFiles::flushFolderOf(path);
        }
        std::vector<std::u16string> flushed;
    };
    CountedFlushes counted(files);
    Recovery counting(u"/app/", counted);
    counting.keep(one);
    EXPECT_EQ(counted.flushed, (std::vector<std::u16string>{kFirst, u"/app/Recovery"}));
    counting.keep(two);
    counting.keep(three);
    EXPECT_EQ(counted.flushed, (std::vector<std::u16string>{kFirst, u"/app/Recovery", kSecond}));
}

TEST_F(RecoveryFaultsTest, AnUnreadSnapshotIsNotOverwrittenAndSeenByALaterStart) {
    recovery.keep(one);
    recovery.keep(two);
    for (const char16_t* const unread : {kFirst, kSecond}) {
        FakeFiles disk = files;
        const std::string whole = disk.files[unread];
        disk.unreadable = {unread};
        Recovery next(u"/app/", disk);
        const auto last = next.find();
        EXPECT_EQ(last->bytes, unread == kFirst ? two : one);
        EXPECT_FALSE(next.foundAll());
        EXPECT_TRUE(next.unseen().empty());
        for (int edit = 1; edit <= kMoreThanFitBehindOne; ++edit) {
            ASSERT_TRUE(next.keep(edit % 2 == 0 ? three : one)) << edit;
        }
        EXPECT_EQ(disk.files[kUnread], whole);

        disk.unreadable.clear();
        Recovery third(u"/app/", disk);
        EXPECT_EQ(third.find()->bytes, three) << "newer than the unread one, whose number was not known";
        EXPECT_TRUE(third.foundAll());
        ASSERT_EQ(third.unseen().size(), 1U);
        EXPECT_EQ(third.unseen()[0].bytes, unread == kFirst ? one : two);
        third.keepNewestOnly();
        EXPECT_FALSE(disk.files.contains(kUnread)) << "its lists are in a backup by now";
    }
}

TEST_F(RecoveryFaultsTest, ATornWriteBesideAnUnreadSnapshotLeavesTheOneBefore) {
    recovery.keep(one);
    recovery.keep(two);
    for (const char16_t* const unread : {kFirst, kSecond}) {
        FakeFiles disk = files;
        disk.unreadable = {unread};
        WorkingCopyBytes kept = unread == kFirst ? two : one;
        int writes = 0;
        TornWrites torn(disk, [&](FakeFiles& left) {
            const auto snapshot = Recovery(u"/app/", left).find();
            ASSERT_TRUE(snapshot);
            EXPECT_EQ(snapshot->bytes, kept);
            ++writes;
        });
        Recovery next(u"/app/", torn);
        next.find();
        for (const WorkingCopyBytes& bytes : {three, one, two, three}) {
            ASSERT_TRUE(next.keep(bytes));
            kept = bytes;
        }
        EXPECT_EQ(writes, 4);
    }
}

TEST_F(RecoveryFaultsTest, AnUnreadSnapshotThatWasSetAsideIsNotReplacedByAnother) {
    recovery.keep(one);
    recovery.keep(two);
    files.files[kUnread] = "set aside by a killed run";
    files.unreadable = {kFirst, kUnread};
    const std::string whole = files.files[kFirst];
    Recovery next(u"/app/", files);
    next.find();
    for (int edit = 1; edit <= kMoreThanFitBehindOne; ++edit) {
        ASSERT_TRUE(next.keep(edit % 2 == 0 ? three : one)) << edit;
    }
    EXPECT_EQ(files.files[kUnread], "set aside by a killed run");
    EXPECT_EQ(files.files[kFirst], whole);
    EXPECT_EQ(found(), three);
}

TEST_F(RecoveryFaultsTest, TheOlderSnapshotOfOneRunWasSeen) {
    recovery.keep(one);
    recovery.keep(two);
    Recovery next(u"/app/", files);
    next.find();
    EXPECT_TRUE(next.foundAll());
    EXPECT_TRUE(next.unseen().empty());
}

TEST_F(RecoveryFaultsTest, OfTwoUnreadSnapshotsOneIsSetAsideAndTheOtherStays) {
    recovery.keep(one);
    recovery.keep(two);
    const auto before = files.files;
    files.unreadable = {kFirst, kSecond};
    Recovery next(u"/app/", files);
    EXPECT_EQ(next.find(), std::nullopt);
    for (const WorkingCopyBytes& bytes : {three, one, two}) {
        EXPECT_TRUE(next.keep(bytes));
        EXPECT_EQ(found(), bytes);
    }
    EXPECT_EQ(files.files[kUnread], before.at(kFirst));
    EXPECT_EQ(files.files[kSecond], before.at(kSecond));
}

TEST_F(RecoveryFaultsTest, WithoutAReadableSlotOrARenameNothingIsWritten) {
    recovery.keep(one);
    recovery.keep(two);
    const auto before = files.files;
    files.unreadable = {kFirst, kSecond};
    files.readOnly = {kUnread};
    Recovery next(u"/app/", files);
    EXPECT_EQ(next.find(), std::nullopt);
    EXPECT_FALSE(next.keep(three));
    EXPECT_EQ(files.files, before);
}

TEST_F(RecoveryFaultsTest, TheEndRemovesAnUnreadSnapshotUnlessItCanBeReadNow) {
    recovery.keep(one);
    recovery.keep(two);
    for (const bool isReadable : {false, true}) {
        FakeFiles disk = files;
        disk.unreadable = {kSecond};
        Recovery next(u"/app/", disk);
        next.find();
        next.keep(three);
        if (isReadable) {
            disk.unreadable.clear();
        }
        next.keepNewestOnly();
        EXPECT_EQ(disk.files.contains(kUnread), isReadable);
        EXPECT_TRUE(disk.files.contains(kSecond));
        EXPECT_FALSE(disk.files.contains(kFirst)) << "older";
    }
}

TEST_F(RecoveryFaultsTest, TheEndRemovesASnapshotSetAsideByAKilledRunUnlessItCanBeReadNow) {
    recovery.keep(one);
    for (const bool isReadable : {false, true}) {
        FakeFiles disk = files;
        disk.files[kUnread] = "set aside";
        disk.unreadable = {kUnread};
        Recovery next(u"/app/", disk);
        next.find();
        EXPECT_TRUE(next.foundAll()) << "an earlier run did without it";
        if (isReadable) {
            disk.unreadable.clear();
        }
        next.keepNewestOnly();
        EXPECT_EQ(disk.files.contains(kUnread), isReadable);
    }
}

// A power cut during an append can leave a file that cannot be read to its end.
TEST_F(RecoveryFaultsTest, WhatIsBeforeAnUnreadableChangeIsFound) {
    class BadEnd : public ForwardingFiles {
    public:
        using ForwardingFiles::ForwardingFiles;
        FileRead read(std::u16string_view path) override {
            constexpr std::size_t kChange = 4096;
            FileRead whole = ForwardingFiles::read(path);
            return path == kFirst ? FileRead::failed(whole.bytes->substr(0, whole.bytes->size() - kChange)) : whole;
        }
    };
    const auto edited = [](char letter) {
        return WorkingCopyBytes{std::string(1, letter) + std::string(50'000, 'y'), std::string(30'000, 'z')};
    };
    for (const char letter : {'a', 'b', 'c'}) {
        ASSERT_TRUE(recovery.keep(edited(letter)));
    }
    const std::string whole = files.files[kFirst];
    BadEnd disk(files);
    Recovery next(u"/app/", disk);
    EXPECT_EQ(next.find()->bytes, edited('b'));
    EXPECT_FALSE(next.foundAll());
    EXPECT_TRUE(next.keep(edited('d')));
    EXPECT_EQ(files.files[kFirst], whole) << "nothing is appended to it";
    EXPECT_EQ(Recovery(u"/app/", disk).find()->bytes, edited('d'));
    EXPECT_EQ(found(), edited('d'));
}
