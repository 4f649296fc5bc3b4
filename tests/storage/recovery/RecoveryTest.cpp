#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/FakeFiles.h"
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
    EXPECT_EQ(found(), one) << "too long";
}

TEST_F(RecoveryTest, AFailedWriteKeepsTheNewestWholeSnapshot) {
    recovery.keep(one);
    recovery.keep(two);
    files.failing = {kFirst};
    EXPECT_FALSE(recovery.keep(three));
    files.files[kFirst] = "torn";
    files.failing.clear();
    EXPECT_EQ(found(), two);
    EXPECT_TRUE(recovery.keep(three));
    EXPECT_EQ(found(), three);
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

TEST_F(RecoveryTest, ALinkInPlaceOfTheFolderIsNotFollowed) {
    files.files[u"/app/Recovery"] = "not a folder";
    EXPECT_FALSE(recovery.keep(one));
    EXPECT_EQ(files.files.size(), 1U);
}

namespace {

std::string withSum(std::string file, std::uint64_t sum) {
    for (std::size_t i = 0; i < 8; ++i) {
        file[file.size() - 8 + i] = static_cast<char>((sum >> (8 * i)) & 0xFFU);
    }
    return file;
}

std::string withChecksum(const std::string& file) {
    std::uint64_t sum = 14695981039346656037U;
    for (std::size_t start = 0; start <= file.size() - 8; start += 8) {
        std::uint64_t word = 0;
        for (std::size_t i = 0; i < 8 && start + i < file.size() - 8; ++i) {
            word |= std::uint64_t{static_cast<unsigned char>(file[start + i])} << (8 * i);
        }
        sum = (sum ^ word) * 1099511628211U;
        sum ^= sum >> 32U;
    }
    return withSum(file, sum);
}

// The format of the second version: without the numbers of states.
std::string ofSecondVersion(std::string file) {
    file[7] = '2';
    return withChecksum(file.erase(32, 16));
}

// The format of version 1.0.0.
std::string ofFirstVersion(std::string file) {
    file = ofSecondVersion(std::move(file));
    file[7] = '1';
    std::uint64_t sum = 14695981039346656037U;
    for (std::size_t i = 0; i + 8 < file.size(); ++i) {
        sum = (sum ^ static_cast<unsigned char>(file[i])) * 1099511628211U;
    }
    return withSum(file, sum);
}

}  // namespace

TEST(RecoveryTestSnapshot, LengthsBeyondTheEndAreRejected) {
    std::string file = encodeSnapshot({7, {"list", "user"}, {}});
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->number, 7U);
    EXPECT_EQ(withChecksum(file), file);
    EXPECT_EQ(decodeSnapshot(std::string(100, 'x')), std::nullopt);
    EXPECT_EQ(decodeSnapshot(file.substr(0, 8)), std::nullopt);
    // The checksum is valid, but the lengths do not match the files.
    for (const auto& [list, user] : {std::pair(5, 4), std::pair(4, 5), std::pair(3, 4), std::pair(4, 3)}) {
        file[16] = static_cast<char>(list);
        file[24] = static_cast<char>(user);
        EXPECT_EQ(decodeSnapshot(withChecksum(file)), std::nullopt) << list << " and " << user;
    }
    file[16] = file[24] = 4;
    EXPECT_TRUE(decodeSnapshot(withChecksum(file)));
}

TEST(RecoveryTestSnapshot, TheFormatOfTheFirstVersionIsRead) {
    const WorkingCopyBytes bytes{"the list", std::nullopt};
    std::string file = ofFirstVersion(encodeSnapshot({7, bytes, {}}));
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->number, 7U);
    EXPECT_EQ(decodeSnapshot(file)->bytes, bytes);
    file[33] = 'T';
    EXPECT_EQ(decodeSnapshot(file), std::nullopt);
}

TEST(RecoveryTestSnapshot, AnUnknownLengthIsStoredAsAllOnes) {
    const std::string file = encodeSnapshot({7, {std::nullopt, "user"}, {}});
    EXPECT_EQ(file.substr(16, 8), std::string(8, '\xFF'));
    EXPECT_EQ(file.substr(24, 8), std::string("\4\0\0\0\0\0\0\0", 8));
}

TEST(RecoveryTestSnapshot, TheFormatOfTheSecondVersionIsRead) {
    const WorkingCopyBytes bytes{std::nullopt, "the favourites"};
    const std::string file = ofSecondVersion(encodeSnapshot({8, bytes, {}}));
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->number, 8U);
    EXPECT_EQ(decodeSnapshot(file)->bytes, bytes);
}

TEST(RecoveryTestSnapshot, MoreStatesThanPresentAreRejected) {
    Snapshot snapshot{7, {"list", "user"}, {}};
    snapshot.left.list = {FileState::of("a"), FileState::of("b")};
    snapshot.left.user = {FileState()};
    const std::string file = encodeSnapshot(snapshot);
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->left, snapshot.left);
    EXPECT_EQ(decodeSnapshot(file)->bytes, snapshot.bytes);
    for (const int count : {0, 1, 4, 5, 100, 255}) {
        std::string changed = file;
        changed[32] = static_cast<char>(count);
        EXPECT_EQ(decodeSnapshot(withChecksum(changed)), std::nullopt) << count;
        changed[39] = '\x7F';
        EXPECT_EQ(decodeSnapshot(withChecksum(changed)), std::nullopt) << count;
    }
}

TEST(RecoveryTestSnapshot, ChangesOfTheSameBitInTwoWordsAreDetected) {
    const std::string file = encodeSnapshot({7, {std::string(100, 'x'), std::string(3, 'y')}, {}});
    for (std::size_t first = 32; first < 40; ++first) {
        for (const int bit : {0, 3, 7}) {
            std::string changed = file;
            changed[first] = static_cast<char>(changed[first] ^ (1 << bit));
            changed[first + 8] = static_cast<char>(changed[first + 8] ^ (1 << bit));
            EXPECT_EQ(decodeSnapshot(changed), std::nullopt) << first << ' ' << bit;
        }
    }
}
