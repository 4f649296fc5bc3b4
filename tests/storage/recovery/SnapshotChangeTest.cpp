#include <gtest/gtest.h>

#include "storage/recovery/SnapshotChange.h"

namespace {

const std::string kLong(10'000, 'x');

// What `from` becomes by its change to `to`.
std::optional<Snapshot> changed(const Snapshot& from, const Snapshot& to) {
    const auto change = encodeChange(from, to);
    if (!change) {
        return std::nullopt;
    }
    Snapshot snapshot = from;
    std::string_view rest = *change;
    return applyChange(rest, snapshot) && rest.empty() ? std::optional(snapshot) : std::nullopt;
}

void expectSame(const std::optional<Snapshot>& made, const Snapshot& expected) {
    ASSERT_TRUE(made);
    EXPECT_EQ(made->number, expected.number);
    EXPECT_EQ(made->bytes, expected.bytes);
    EXPECT_EQ(made->left, expected.left);
}

}  // namespace

TEST(SnapshotChangeTest, AnyPartOfEitherFileIsReplaced) {
    const std::string texts[] = {"",
                                 "a",
                                 "aa",
                                 "ab",
                                 "ba",
                                 kLong,
                                 kLong + "y",
                                 "y" + kLong,
                                 kLong + kLong,
                                 kLong + "y" + kLong,
                                 kLong + "z" + kLong};
    for (const std::string& before : texts) {
        for (const std::string& after : texts) {
            expectSame(changed({7, {before, "user"}, {}}, {9, {after, "user"}, {}}), {9, {after, "user"}, {}});
            expectSame(changed({7, {"list", before}, {}}, {9, {"other", after}, {}}), {9, {"other", after}, {}});
        }
    }
}

TEST(SnapshotChangeTest, ASmallEditOfLongListsIsShort) {
    const std::string before(1'000'000, 'x');
    std::string after = before;
    after.replace(500'000, 1, "edited");
    const auto change = encodeChange({7, {before, before}, {}}, {8, {after, before}, {}});
    ASSERT_TRUE(change);
    EXPECT_EQ(change->size(), 4096U);
}

TEST(SnapshotChangeTest, AnUnknownFileStaysUnknown) {
    expectSame(changed({7, {std::nullopt, "a"}, {}}, {8, {std::nullopt, "b"}, {}}), {8, {std::nullopt, "b"}, {}});
    EXPECT_FALSE(encodeChange({7, {std::nullopt, "a"}, {}}, {8, {"", "a"}, {}}));
    EXPECT_FALSE(encodeChange({7, {"a", "a"}, {}}, {8, {"a", std::nullopt}, {}}));
}

TEST(SnapshotChangeTest, TheStatesAreThoseOfTheNewOne) {
    Snapshot before{7, {"list", "user"}, {}};
    before.left.list = {FileState::of("a"), FileState::of("b")};
    Snapshot after{8, {"list", "user"}, {}};
    after.left.user = {FileState()};
    expectSame(changed(before, after), after);
}

TEST(SnapshotChangeTest, ATornOrDamagedOneChangesNothing) {
    const Snapshot before{7, {"list", "user"}, {}};
    const std::string change = *encodeChange(before, {8, {"lisp", "user"}, {}});
    const auto refused = [&](std::string_view file) {
        Snapshot snapshot = before;
        const std::string_view whole = file;
        return !applyChange(file, snapshot) && file == whole && snapshot.number == 7 && snapshot.bytes == before.bytes;
    };
    for (std::size_t at = 0; at < change.size(); ++at) {
        std::string damaged = change;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x40);
        ASSERT_TRUE(refused(damaged)) << at;
        ASSERT_TRUE(refused(std::string_view(change).substr(0, at))) << at;
    }
    EXPECT_FALSE(refused(change));
}

TEST(SnapshotChangeTest, AChangeOfAnotherSnapshotIsRefused) {
    const Snapshot before{7, {"list", "user"}, {}};
    const Snapshot after{8, {"lisp", "user"}, {}};
    const std::string change = *encodeChange(before, after);
    for (Snapshot other : {Snapshot{6, before.bytes, {}}, after, Snapshot{7, {"li", "user"}, {}},
                           Snapshot{7, {std::nullopt, "user"}, {}}}) {
        std::string_view rest = change;
        EXPECT_FALSE(applyChange(rest, other));
    }
}
