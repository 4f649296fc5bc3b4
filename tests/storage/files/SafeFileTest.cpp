#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"

namespace {

constexpr auto kPath = u"/disk/List.ini";
constexpr auto kBeside = u"/disk/List.ini.k7new";

// A disk of limited size, whose device may lose bytes written to a path.
class SmallDisk : public FakeFiles {
public:
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        if (!FakeFiles::write(path, bytes, flush)) {
            return false;
        }
        std::string& written = files[std::u16string(path)];
        std::size_t others = 0;
        for (const auto& [name, content] : files) {
            others += name == path ? 0 : content.size();
        }
        const std::size_t left = room > others ? room - others : 0;
        if (bytes.size() > left) {
            written.resize(left);
            return false;
        }
        return true;
    }
    // Only the old content is unreadable; the name can be replaced.
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
        unreadable.erase(std::u16string(to));
        return FakeFiles::rename(from, to, flush);
    }
    FileRead readBack(std::u16string_view path) override {
        FileRead read = FakeFiles::readBack(path);
        if (read.bytes && path == losing) {
            read.bytes->back() = '?';
        }
        return read;
    }

    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override {
        EXPECT_EQ(narrow(folder), "/disk");
        std::size_t used = 0;
        for (const auto& [name, content] : files) {
            used += content.size();
        }
        return room > used ? room - used : 0;
    }

    std::size_t room = 1000;
    std::u16string losing;
};

bool replaceVerified(Files& files, std::u16string_view path, std::string_view bytes) {
    return replaceVerified(files, {NewFile{std::u16string(path), std::string(bytes)}});
}

class SafeFileTest : public testing::Test {
protected:
    void expectOnly(const std::string& content) {
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, content}}));
    }
    SmallDisk disk;
};

}  // namespace

TEST_F(SafeFileTest, ReplacesAtomically) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceFile(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses, (std::vector<std::string>{"write /disk/List.ini.k7new", "rename /disk/List.ini.k7new",
                                                       "onto /disk/List.ini"}));
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
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedReadsBackBeforeAndAfterReplacing) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceVerified(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses, (std::vector<std::string>{"read /disk/List.ini", "write /disk/List.ini.k7new",
                                                       "read /disk/List.ini.k7new", "rename /disk/List.ini.k7new",
                                                       "onto /disk/List.ini", "read /disk/List.ini"}));
}

TEST_F(SafeFileTest, VerifiedKeepsTheOldFileWhenTheTemporaryFileIsDamaged) {
    disk.files[kPath] = "old";
    disk.losing = kBeside;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedRestoresTheOldFileWhenTheNewOneIsDamagedAfterTheRename) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedRemovesADamagedFileThatIsNew) {
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(SafeFileTest, VerifiedOverwritesInPlaceWithoutRoomForBoth) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    EXPECT_TRUE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("abcdefghij");
}

TEST_F(SafeFileTest, VerifiedRestoresTheOldBytesWhenTheNewFileAloneDoesNotFit) {
    disk.files[kPath] = "12345678";
    disk.room = 9;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(SafeFileTest, VerifiedRestoresTheOldBytesWhenTheOverwrittenFileIsDamaged) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(SafeFileTest, VerifiedLeavesNothingOfANewFileThatDoesNotFit) {
    disk.room = 5;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(SafeFileTest, VerifiedReplacesAFileThatCannotBeRead) {
    disk.files[kPath] = "old";
    disk.unreadable = {kPath};
    EXPECT_TRUE(replaceVerified(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(std::count(disk.accesses.begin(), disk.accesses.end(), "write /disk/List.ini"), 0) << "in place";
}

TEST_F(SafeFileTest, VerifiedKeepsAnUnreadableFileWithoutRoomForTheNewOne) {
    disk.files[kPath] = "12345678";
    disk.unreadable = {kPath};
    disk.room = 12;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(SafeFileTest, VerifiedKeepsAnInaccessibleFile) {
    disk.files[kPath] = "old";
    disk.failing.insert(kPath);
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, ASingleOneOfSeveralIsDurable) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceFiles(disk, {NewFile{kPath, "list"}}));
    disk.cutPower([](std::u16string_view) { return FakeFiles::Fate::Old; });
    expectOnly("list");
}

namespace {

constexpr auto kOther = u"/disk/User.ini";

class SafeFileTestVerifiedPair : public SafeFileTest {
protected:
    SafeFileTestVerifiedPair() { disk.files = old; }
    bool replace() { return ::replaceVerified(disk, {NewFile{kPath, "new list"}, NewFile{kOther, "new user"}}); }

    const std::map<std::u16string, std::string> old{{kPath, "old list"}, {kOther, "old user"}};
    const std::map<std::u16string, std::string> both{{kPath, "new list"}, {kOther, "new user"}};
};

}  // namespace

TEST_F(SafeFileTestVerifiedPair, BothAreReplaced) {
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
}

TEST_F(SafeFileTestVerifiedPair, ADamagedSecondFileRestoresTheFirst) {
    for (const auto* const fault : {kPath, kOther, kBeside, u"/disk/User.ini.k7new"}) {
        disk.losing = fault;
        EXPECT_FALSE(replace());
        EXPECT_EQ(disk.files, old);
    }
}

TEST_F(SafeFileTestVerifiedPair, LeftoversOfAnEarlierAttemptAreReplaced) {
    disk.files[kBeside] = "half";
    disk.files[u"/disk/User.ini.k7new"] = "half";
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
}

TEST_F(SafeFileTestVerifiedPair, EachUsesTheSpaceLeftByTheOther) {
    for (std::size_t room = 16; room < 40; ++room) {
        disk.files = old;
        disk.room = room;
        EXPECT_TRUE(replace()) << room;
        EXPECT_EQ(disk.files, both) << room;
    }
}

TEST_F(SafeFileTestVerifiedPair, ADiskThatFailsWithRoomLeftIsNotWrittenInPlace) {
    disk.room = 1'000'000;
    disk.failing = {kBeside};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
    EXPECT_EQ(std::count(disk.accesses.begin(), disk.accesses.end(), "write /disk/List.ini"), 0);
}

TEST_F(SafeFileTestVerifiedPair, WithoutOldFilesAFailureLeavesNoFile) {
    disk.files.clear();
    disk.losing = kOther;
    EXPECT_FALSE(replace());
    EXPECT_TRUE(disk.files.empty());
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
        disk.files.erase(kBeside);
    }
    ASSERT_TRUE(replaceFile(disk, kPath, "flushed"));
    disk.cutPower([](std::u16string_view) { return Fate::Old; });
    expectOnly("flushed");
}

TEST_F(SafeFileTest, AFailedUnflushedReplacementKeepsTheOldFile) {
    disk.files[kPath] = "old";
    disk.failing = {kBeside};
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
    for (const auto* const fault : {kPath, kBeside}) {
        disk.files = {{kPath, "old"}};
        disk.failing = {fault};
        EXPECT_FALSE(replaceFiles(disk, {NewFile{kPath, "list"}, NewFile{kOther, "user"}}));
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, "old"}, {kOther, "user"}}));
    }
}
