#include "storage/files/SafeFile.h"
#include "storage/files/SmallDisk.h"

namespace {

class SafeFileTest : public SmallDiskTest {};

}  // namespace

TEST_F(SafeFileTest, ReplacesAtomically) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceFile(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses,
              (std::vector<std::string>{"write /disk/LIST.K7N", "rename /disk/LIST.K7N", "onto /disk/List.ini"}));
}

TEST_F(SafeFileTest, TheTemporaryNameIsShortAndInCapitals) {
    EXPECT_EQ(temporaryPathOf(u"/the.disk/List.ini"), u"/the.disk/LIST.K7N");
    EXPECT_EQ(temporaryPathOf(u"e:\\user.ini"), u"e:\\USER.K7N");
    EXPECT_EQ(temporaryPathOf(u"/disk.d/lists"), u"/disk.d/LISTS.K7N");
    EXPECT_EQ(temporaryPathOf(u"/disk.d/.ini"), u"/disk.d/.K7N");
    EXPECT_EQ(temporaryPathOf(u"az\u00E9{`.b.csv"), u"AZ\u00E9{`.B.K7N");
}

TEST_F(SafeFileTest, CreatesAMissingFile) {
    EXPECT_TRUE(replaceFile(disk, kPath, "new"));
    expectOnly("new");
}

TEST_F(SafeFileTest, AFullDiskKeepsTheOldFileAndLeavesNoTemporaryFile) {
    disk.files[kPath] = "old";
    disk.room = 5;
    EXPECT_FALSE(replaceFile(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, AFailedRenameKeepsTheOldFileAndLeavesNoTemporaryFile) {
    disk.files[kPath] = "old";
    disk.readOnly.insert(kPath);
    EXPECT_FALSE(replaceFile(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, ASingleOneOfSeveralIsDurable) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceFiles(disk, {NewFile{kPath, "list"}}));
    disk.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    expectOnly("list");
}

TEST_F(SafeFileTest, WithoutAFlushReadersFindTheNewFileButAPowerCutMayDamageIt) {
    using Fate = FakeFiles::Fate;
    for (const auto& [fate, left] : {std::pair(Fate::Old, "old"), std::pair(Fate::Empty, ""),
                                     std::pair(Fate::Torn, "12"), std::pair(Fate::New, "1234")}) {
        ASSERT_TRUE(replaceFile(disk, kPath, "old"));
        ASSERT_TRUE(replaceFile(disk, kPath, "1234", Flush::Later));
        expectOnly("1234");
        disk.cutPower([fate = fate](std::u16string_view) { return fate; });
        EXPECT_EQ(disk.files[kPath], left);
        disk.files.erase(kTemporary);
    }
    ASSERT_TRUE(replaceFile(disk, kPath, "flushed"));
    disk.cutPower([](std::u16string_view) { return Fate::Old; });
    expectOnly("flushed");
}

TEST_F(SafeFileTest, AFailedUnflushedReplacementKeepsTheOldFile) {
    disk.files[kPath] = "old";
    disk.failing = {kTemporary};
    EXPECT_FALSE(replaceFile(disk, kPath, "new", Flush::Later));
    disk.failing = {kPath};
    EXPECT_FALSE(replaceFile(disk, kPath, "new", Flush::Later));
    expectOnly("old");
}

TEST_F(SafeFileTest, SeveralAreReplacedAndDurableTogether) {
    EXPECT_TRUE(replaceFiles(disk, {NewFile{kPath, "list"}, NewFile{kOther, "user"}}));
    disk.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, "list"}, {kOther, "user"}}));
    EXPECT_TRUE(replaceFiles(disk, {}));
}

TEST_F(SafeFileTest, AFailureOfOneFileDoesNotPreventTheOthers) {
    for (const auto* const fault : {kPath, kTemporary}) {
        disk.files = {{kPath, "old"}};
        disk.failing = {fault};
        EXPECT_FALSE(replaceFiles(disk, {NewFile{kPath, "list"}, NewFile{kOther, "user"}}));
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, "old"}, {kOther, "user"}}));
    }
}
