#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/FakeFiles.h"
#include "fakes/ForwardingFiles.h"
#include "storage/recovery/Recovery.h"

namespace {

constexpr const char16_t* kFirst = u"/app/Recovery/Snapshot1";
constexpr const char16_t* kSecond = u"/app/Recovery/Snapshot2";

class RecoveryTest : public testing::Test {
protected:
    // What the next run reads.
    std::optional<WorkingCopyBytes> found() {
        const auto snapshot = Recovery(u"/app/", files).find();
        return snapshot ? std::optional(snapshot->bytes) : std::nullopt;
    }
    auto writes() const {
        return std::count_if(files.accesses.begin(), files.accesses.end(),
                             [](const std::string& access) { return access.starts_with("write "); });
    }

    FakeFiles files;
    Recovery recovery{u"/app/", files};
    const WorkingCopyBytes one{"list 1", "user 1"};
    const WorkingCopyBytes two{"list 2", "user 2"};
    const WorkingCopyBytes three{"list 3", "user 3"};
};

class RecoveryTestChanges : public RecoveryTest {
protected:
    static WorkingCopyBytes edited(int edit) {
        return {std::string(50'000, 'x') + std::to_string(edit) + std::string(50'000, 'y'), std::string(30'000, 'z')};
    }
};

}  // namespace

TEST_F(RecoveryTest, WithoutASnapshotNothingIsFound) {
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_TRUE(files.folders.empty()) << "looking makes no folder";
}

TEST_F(RecoveryTest, TheNewestIsFound) {
    for (const WorkingCopyBytes& bytes : {one, two, three, one}) {
        ASSERT_TRUE(recovery.keep(bytes));
        EXPECT_EQ(found(), bytes);
    }
    EXPECT_EQ(files.files.size(), 2U);
}

TEST_F(RecoveryTest, AnUnchangedSnapshotIsNotWrittenAgain) {
    recovery.keep(one);
    recovery.keep(one);
    EXPECT_EQ(writes(), 1);
}

TEST_F(RecoveryTest, TheSnapshotOfAKilledRunIsWrittenAgain) {
    recovery.keep(one);
    // Interrupted before the flush: the snapshot survives a kill, but not a power cut.
    files.write(kFirst, std::string(files.files[kFirst]), Flush::Later);
    Recovery next(u"/app/", files);
    next.find();
    EXPECT_TRUE(next.keep(one));
    EXPECT_TRUE(next.keep(one));
    EXPECT_EQ(writes(), 2);
    files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Empty; });
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryTest, ALaterRunContinuesTheNumbering) {
    recovery.keep(one);
    recovery.keep(two);
    Recovery next(u"/app/", files);
    next.find();
    next.keep(three);
    EXPECT_EQ(found(), three);
}

TEST_F(RecoveryTest, ATornSnapshotIsSkippedForThePreviousOne) {
    recovery.keep(one);
    recovery.keep(two);
    const std::string whole = files.files[kSecond];
    for (std::size_t length = 0; length < whole.size(); ++length) {
        files.files[kSecond] = whole.substr(0, length);
        ASSERT_EQ(found(), one) << length;
    }
}

TEST_F(RecoveryTest, ADamagedSnapshotIsSkippedForThePreviousOne) {
    recovery.keep(one);
    recovery.keep(two);
    const std::string whole = files.files[kSecond];
    for (std::size_t at = 0; at < whole.size(); ++at) {
        files.files[kSecond] = whole;
        files.files[kSecond][at] = static_cast<char>(whole[at] ^ 0x40);
        ASSERT_EQ(found(), one) << at;
    }
    files.files[kSecond] = whole + '\0';
    EXPECT_EQ(found(), two) << "what follows is an interrupted change";
}

TEST_F(RecoveryTest, AFailedWriteKeepsTheNewestWholeSnapshot) {
    recovery.keep(one);
    recovery.keep(two);
    files.readOnly = {kFirst, kSecond};
    EXPECT_FALSE(recovery.keep(three));
    files.readOnly.clear();
    files.files[kFirst] = "torn";
    EXPECT_EQ(found(), two);
    EXPECT_TRUE(recovery.keep(three));
    EXPECT_EQ(found(), three);
}

TEST_F(RecoveryTest, AFailedWriteIsMadeUpForByAChangeBehindTheNewestSnapshot) {
    recovery.keep(one);
    recovery.keep(two);
    files.readOnly = {kFirst};
    EXPECT_TRUE(recovery.keep(three));
    EXPECT_EQ(found(), three);
    files.readOnly.clear();
    EXPECT_TRUE(recovery.keep(one));
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryTest, AFileWithoutBytesStaysAsLastKept) {
    recovery.keep({"list 1", std::nullopt});
    EXPECT_EQ(found(), (WorkingCopyBytes{"list 1", std::nullopt}));
    recovery.keep(two);
    recovery.keep({std::nullopt, "user 3"});
    EXPECT_EQ(found(), (WorkingCopyBytes{"list 2", "user 3"}));
    recovery.keep({"", ""});
    EXPECT_EQ(found(), (WorkingCopyBytes{"", ""})) << "empty is known";
}

TEST_F(RecoveryTest, CreatingTheFolderIsRetriedAtTheNextSnapshot) {
    files.failing = {u"/app/Recovery"};
    EXPECT_FALSE(recovery.keep(one));
    files.failing.clear();
    EXPECT_TRUE(recovery.keep(one));
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryTest, OnlyTheNewestIsKept) {
    recovery.keep(one);
    recovery.keepNewestOnly();
    EXPECT_EQ(found(), one);
    recovery.keep(two);
    recovery.keep(three);
    recovery.keepNewestOnly();
    EXPECT_EQ(files.list(u"/app/Recovery"), std::vector<std::u16string>{u"Snapshot1"});
    EXPECT_EQ(found(), three);
    EXPECT_TRUE(recovery.keep(one));
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryTestChanges, AnEditOfLongListsIsWrittenBehindTheSnapshot) {
    ASSERT_TRUE(recovery.keep(edited(0)));
    const std::size_t size = files.files[kFirst].size();
    for (int edit = 1; edit <= 5; ++edit) {
        ASSERT_TRUE(recovery.keep(edited(edit)));
        EXPECT_EQ(found(), edited(edit)) << edit;
    }
    EXPECT_EQ(writes(), 1);
    EXPECT_EQ(files.files[kFirst].size(), size + std::size_t{5} * 4096);
}

TEST_F(RecoveryTestChanges, SortsGoToBothSlotsWithoutChangingTheirSize) {
    const auto sorted = [](char first) {
        return WorkingCopyBytes{std::string(30'000, first), std::string(70'000, 'z')};
    };
    ASSERT_TRUE(recovery.keep(sorted('a')));
    ASSERT_TRUE(recovery.keep(sorted('b')));
    const std::size_t size = files.files[kFirst].size();
    EXPECT_EQ(files.files[kSecond].size(), size);
    for (const char first : {'a', 'b', 'c', 'd'}) {
        ASSERT_TRUE(recovery.keep(sorted(first)));
        EXPECT_EQ(found(), sorted(first));
        EXPECT_EQ(files.files[kFirst].size(), size);
        EXPECT_EQ(files.files[kSecond].size(), size);
    }
}

TEST_F(RecoveryTestChanges, ManyEditsGoToBothSlots) {
    for (int edit = 0; edit < 300; ++edit) {
        ASSERT_TRUE(recovery.keep(edited(edit)));
        ASSERT_EQ(found(), edited(edit)) << edit;
    }
    EXPECT_GT(writes(), 300 / 100);
    EXPECT_LT(writes(), 300 / 10);
    EXPECT_LT(files.files[kFirst].size(), 2 * edited(0).list->size());
}

TEST_F(RecoveryTestChanges, ATornOrDamagedChangeLeavesTheOneBefore) {
    for (int edit = 0; edit <= 2; ++edit) {
        recovery.keep(edited(edit));
    }
    const std::string whole = files.files[kFirst];
    for (std::size_t length = whole.size() - 4096; length < whole.size(); ++length) {
        files.files[kFirst] = whole.substr(0, length);
        ASSERT_EQ(found(), edited(1)) << length;
    }
    for (std::size_t at = whole.size() - 4096; at < whole.size(); ++at) {
        files.files[kFirst] = whole;
        files.files[kFirst][at] = static_cast<char>(whole[at] ^ 0x40);
        ASSERT_EQ(found(), edited(1)) << at;
    }
}

TEST_F(RecoveryTestChanges, TheNextRunContinuesBehindWholeChangesOnly) {
    recovery.keep(edited(0));
    recovery.keep(edited(1));
    Recovery next(u"/app/", files);
    next.find();
    EXPECT_TRUE(next.keep(edited(2)));
    EXPECT_EQ(found(), edited(2));
    EXPECT_EQ(writes(), 1);
    files.files[kFirst].pop_back();
    Recovery third(u"/app/", files);
    third.find();
    EXPECT_TRUE(third.keep(edited(3)));
    EXPECT_EQ(found(), edited(3));
    EXPECT_EQ(writes(), 2);
}

TEST_F(RecoveryTestChanges, TheChangesOfEarlierRunsCountForTheirLimit) {
    ASSERT_TRUE(recovery.keep(edited(0)));
    const std::size_t size = files.files[kFirst].size();
    constexpr int kRuns = 3;
    constexpr int kEdits = 7;  // two runs with as many stay below half of the snapshot
    for (int edit = 1; edit <= kRuns * kEdits;) {
        Recovery next(u"/app/", files);
        next.find();
        for (int i = 0; i < kEdits; ++i, ++edit) {
            ASSERT_TRUE(next.keep(edited(edit)));
            EXPECT_EQ(found(), edited(edit)) << edit;
        }
    }
    EXPECT_GT(files.files[kFirst].size(), size + size / 4);
    EXPECT_LE(files.files[kFirst].size(), size + size / 2);
    EXPECT_TRUE(files.files.contains(kSecond));
}

TEST_F(RecoveryTestChanges, AtMostAHundredChangesOfAllRunsFollowASnapshot) {
    const auto longList = [](int edit) {
        return WorkingCopyBytes{std::to_string(edit) + std::string(1'000'000, 'x'), ""};
    };
    ASSERT_TRUE(recovery.keep(longList(100)));
    const std::size_t size = files.files[kFirst].size();
    for (int edit = 101; edit <= 220;) {
        Recovery next(u"/app/", files);
        next.find();
        for (int i = 0; i < 60; ++i, ++edit) {
            ASSERT_TRUE(next.keep(longList(edit)));
        }
        EXPECT_EQ(found(), longList(edit - 1));
    }
    EXPECT_EQ(files.files[kFirst].size(), size + std::size_t{100} * 4096);
    EXPECT_TRUE(files.files.contains(kSecond));
}

TEST_F(RecoveryTestChanges, AFailedChangeIsWrittenToTheOtherSlot) {
    recovery.keep(edited(0));
    files.failing = {kFirst};
    EXPECT_TRUE(recovery.keep(edited(1)));
    EXPECT_EQ(writes(), 2);
    files.failing.clear();
    EXPECT_EQ(found(), edited(1));
}

// Its flush has failed: it is there all the same, and what is kept later must be newer.
TEST_F(RecoveryTestChanges, AFailedChangeThatIsThereIsNotTheNewest) {
    class NoFlush : public ForwardingFiles {
    public:
        using ForwardingFiles::ForwardingFiles;
        bool append(std::u16string_view path, std::string_view bytes) override {
            ForwardingFiles::append(path, bytes);
            return false;
        }
        bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
            return writes && ForwardingFiles::write(path, bytes, flush);
        }
        bool writes = true;
    };
    NoFlush noFlush(files);
    Recovery failing(u"/app/", noFlush);
    failing.keep(edited(0));
    noFlush.writes = false;
    EXPECT_FALSE(failing.keep(edited(1)));
    noFlush.writes = true;
    EXPECT_TRUE(failing.keep(edited(2)));
    EXPECT_EQ(found(), edited(2));
}

TEST_F(RecoveryTestChanges, AFileThatIsNotAsItWasLeftGetsNoChange) {
    recovery.keep(edited(0));
    files.files.erase(kFirst);
    EXPECT_TRUE(recovery.keep(edited(1)));
    EXPECT_EQ(found(), edited(1));
    EXPECT_FALSE(files.files.contains(kFirst));
}

TEST_F(RecoveryTest, ASnapshotRecordsTheStatesThatTheRunMayLeave) {
    recovery.mayLeave(ListFileId::List, FileState::of("found"));
    recovery.mayLeave(ListFileId::List, FileState::of("converted"));
    recovery.mayLeave(ListFileId::User, FileState());
    recovery.keep(one);
    auto snapshot = Recovery(u"/app/", files).find();
    ASSERT_TRUE(snapshot);
    for (const char* const bytes : {"found", "converted", "list 1"}) {
        EXPECT_TRUE(snapshot->leaves(ListFileId::List, FileState::of(bytes))) << bytes;
    }
    for (const char* const bytes : {"", "other", "founD", "user 1"}) {
        EXPECT_FALSE(snapshot->leaves(ListFileId::List, FileState::of(bytes))) << bytes;
    }
    EXPECT_FALSE(snapshot->leaves(ListFileId::List, FileState())) << "a missing file";
    EXPECT_TRUE(snapshot->leaves(ListFileId::User, FileState()));
    EXPECT_TRUE(snapshot->leaves(ListFileId::User, FileState::of("user 1")));

    recovery.leaves(ListFileId::List, FileState::of("found"));
    EXPECT_TRUE(recovery.keep(one)) << "the same lists, other states";
    snapshot = Recovery(u"/app/", files).find();
    EXPECT_FALSE(snapshot->leaves(ListFileId::List, FileState::of("converted")));
    EXPECT_TRUE(snapshot->leaves(ListFileId::List, FileState::of("found")));
}

TEST_F(RecoveryTest, TheNameOfEachSlotSurvivesAPowerCut) {
    const auto lose = [this] { files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; }); };
    recovery.keep(one);
    lose();
    EXPECT_EQ(found(), one);
    recovery.keep(two);
    lose();
    EXPECT_EQ(found(), two);
}

TEST_F(RecoveryTestChanges, TheNameOfAKilledRunsSnapshotSurvivesAPowerCut) {
    recovery.keep(edited(0));
    const std::string snapshot = std::move(files.files[kFirst]);
    files.files.clear();
    // Interrupted before the flush of the folder.
    files.write(kFirst, snapshot, Flush::Now);
    Recovery next(u"/app/", files);
    next.find();
    EXPECT_TRUE(next.keep(edited(1)));
    EXPECT_EQ(writes(), 2) << "the change is appended";
    files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    EXPECT_EQ(found(), edited(1));
}

TEST_F(RecoveryTest, ASlotThatIsWrittenAgainAfterItsRemovalSurvivesAPowerCut) {
    recovery.keep(one);
    recovery.keep(two);
    recovery.keepNewestOnly();
    recovery.keep(one);
    files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    EXPECT_EQ(found(), one);
}

TEST_F(RecoveryTest, ALinkInPlaceOfTheFolderIsNotFollowed) {
    files.files[u"/app/Recovery"] = "not a folder";
    EXPECT_FALSE(recovery.keep(one));
    EXPECT_EQ(files.files.size(), 1U);
}
