#include <gtest/gtest.h>

#include <utility>

#include "storage/recovery/Snapshot.h"

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

// The format of the third version: without the padding. `bytes`: of both files.
std::string ofThirdVersion(std::string file, std::size_t bytes) {
    file[7] = '3';
    constexpr std::size_t kAround = 48 + 8;
    return withChecksum(file.erase(48 + bytes, file.size() - kAround - bytes));
}

// The format of the second version: without the numbers of states.
std::string ofSecondVersion(std::string file, std::size_t bytes) {
    file = ofThirdVersion(std::move(file), bytes);
    file[7] = '2';
    return withChecksum(file.erase(32, 16));
}

// The format of version 1.0.0.
std::string ofFirstVersion(std::string file, std::size_t bytes) {
    file = ofSecondVersion(std::move(file), bytes);
    file[7] = '1';
    std::uint64_t sum = 14695981039346656037U;
    for (std::size_t i = 0; i + 8 < file.size(); ++i) {
        sum = (sum ^ static_cast<unsigned char>(file[i])) * 1099511628211U;
    }
    return withSum(file, sum);
}

}  // namespace

TEST(SnapshotTest, LengthsBeyondTheEndAreRejected) {
    std::string file = encodeSnapshot({7, {"list", "user"}, {}});
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->snapshot.number, 7U);
    EXPECT_EQ(withChecksum(file), file);
    EXPECT_FALSE(decodeSnapshot(std::string(100, 'x')));
    EXPECT_FALSE(decodeSnapshot(file.substr(0, 8)));
    // The checksum is valid, but the lengths reach beyond the padding.
    for (const std::size_t length : {16U, 24U}) {
        std::string longer = file;
        longer[length + 1] = '\x10';
        EXPECT_FALSE(decodeSnapshot(withChecksum(longer))) << length;
    }
    EXPECT_TRUE(decodeSnapshot(withChecksum(file)));
}

TEST(SnapshotTest, TheFormatOfTheFirstVersionIsRead) {
    const WorkingCopyBytes bytes{"the list", std::nullopt};
    std::string file = ofFirstVersion(encodeSnapshot({7, bytes, {}}), 8);
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->snapshot.number, 7U);
    EXPECT_EQ(decodeSnapshot(file)->snapshot.bytes, bytes);
    file[33] = 'T';
    EXPECT_FALSE(decodeSnapshot(file));
}

TEST(SnapshotTest, AnUnknownLengthIsStoredAsAllOnes) {
    const std::string file = encodeSnapshot({7, {std::nullopt, "user"}, {}});
    EXPECT_EQ(file.substr(16, 8), std::string(8, '\xFF'));
    EXPECT_EQ(file.substr(24, 8), std::string("\4\0\0\0\0\0\0\0", 8));
}

TEST(SnapshotTest, TheFormatOfTheSecondVersionIsRead) {
    const WorkingCopyBytes bytes{std::nullopt, "the favourites"};
    const std::string file = ofSecondVersion(encodeSnapshot({8, bytes, {}}), 14);
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->snapshot.number, 8U);
    EXPECT_EQ(decodeSnapshot(file)->snapshot.bytes, bytes);
}

TEST(SnapshotTest, OneOfTheThirdVersionIsRead) {
    const WorkingCopyBytes bytes{"the list", "the favourites"};
    const std::string file = ofThirdVersion(encodeSnapshot({9, bytes, {}}), 22);
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->snapshot.number, 9U);
    EXPECT_EQ(decodeSnapshot(file)->snapshot.bytes, bytes);
    EXPECT_FALSE(decodeSnapshot(file)->takesChanges);
    EXPECT_FALSE(decodeSnapshot(file + '\0'));
    for (std::size_t length = 0; length < file.size(); ++length) {
        EXPECT_FALSE(decodeSnapshot(file.substr(0, length))) << length;
    }
}

TEST(SnapshotTest, MoreStatesThanPresentAreRejected) {
    Snapshot snapshot{7, {"list", "user"}, {}};
    snapshot.left.list = {FileState::of("a"), FileState::of("b")};
    snapshot.left.user = {FileState()};
    const std::string file = encodeSnapshot(snapshot);
    ASSERT_TRUE(decodeSnapshot(file));
    EXPECT_EQ(decodeSnapshot(file)->snapshot.left, snapshot.left);
    EXPECT_EQ(decodeSnapshot(file)->snapshot.bytes, snapshot.bytes);
    for (const int count : {0, 2, 255}) {
        std::string changed = file;
        changed[32] = static_cast<char>(count);
        changed[33] = '\1';
        EXPECT_FALSE(decodeSnapshot(withChecksum(changed))) << count;
        changed[39] = '\x7F';
        EXPECT_FALSE(decodeSnapshot(withChecksum(changed))) << count;
    }
}

TEST(SnapshotTest, ChangesOfTheSameBitInTwoWordsAreDetected) {
    const std::string file = encodeSnapshot({7, {std::string(100, 'x'), std::string(3, 'y')}, {}});
    for (std::size_t first = 32; first < 40; ++first) {
        for (const int bit : {0, 3, 7}) {
            std::string changed = file;
            changed[first] = static_cast<char>(changed[first] ^ (1 << bit));
            changed[first + 8] = static_cast<char>(changed[first + 8] ^ (1 << bit));
            EXPECT_FALSE(decodeSnapshot(changed)) << first << ' ' << bit;
        }
    }
}
