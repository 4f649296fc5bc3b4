#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"

namespace {

constexpr auto kPath = u"/disk/List.ini";
constexpr auto kTemporary = u"/disk/LIST.K7N";

// A disk of limited size, whose device may lose bytes written to a path.
class SmallDisk : public FakeFiles {
public:
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        if (path == refusing && refusals-- > 0) {
            return false;
        }
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
        if (read.bytes && path == losing && losses-- > 0) {
            read.bytes->back() = '?';
        }
        return read;
    }

    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override {
        EXPECT_EQ(narrow(folder), "/disk");
        if (free) {
            return free;
        }
        std::size_t used = 0;
        for (const auto& [name, content] : files) {
            used += content.size();
        }
        return room > used ? room - used : 0;
    }

    std::size_t room = 1000;
    std::u16string losing;
    int losses = 1000;  // how many reads of it return damaged bytes
    std::u16string refusing;
    int refusals = 0;  // how many writes of it fail
};

bool replaceVerified(Files& files, std::u16string_view path, std::string_view bytes) {
    return replaceVerified(files, {NewFile{std::u16string(path), std::string(bytes)}});
}

class SafeFileTest : public testing::Test {
protected:
    void expectOnly(const std::string& content) {
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, content}}));
    }
    auto countOf(std::string_view access) const {
        return std::count(disk.accesses.begin(), disk.accesses.end(), access);
    }
    SmallDisk disk;
};

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
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedReadsBackBeforeAndAfterReplacing) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceVerified(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses,
              (std::vector<std::string>{"read /disk/List.ini", "write /disk/LIST.K7N", "read /disk/LIST.K7N",
                                        "rename /disk/LIST.K7N", "onto /disk/List.ini", "read /disk/List.ini"}));
}

TEST_F(SafeFileTest, VerifiedKeepsTheOldFileWhenTheTemporaryFileIsDamaged) {
    disk.files[kPath] = "old";
    disk.losing = kTemporary;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedRestoresTheOldFileWhenTheNewOneIsDamagedAfterTheRename) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFileTest, VerifiedPutsTheOldFileBackASecondTimeWhenItIsDamaged) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    disk.losses = 3;  // the new file, then the old one before and after it is restored
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
    EXPECT_EQ(countOf("onto /disk/List.ini"), 3);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0) << "in place";
}

TEST_F(SafeFileTest, VerifiedWritesTheOldBytesBackASecondTimeWhenThatFails) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    disk.refusing = kPath;
    disk.losing = kPath;
    // The disk damages the new bytes and refuses the old ones once.
    class Refusing : public SmallDisk {
    public:
        FileRead readBack(std::u16string_view path) override {
            refusals = overwritten ? refusals : 1;
            overwritten = true;
            return SmallDisk::readBack(path);
        }
        bool overwritten = false;
    };
    Refusing refusing;
    static_cast<SmallDisk&>(refusing) = disk;
    EXPECT_FALSE(replaceVerified(refusing, kPath, "abcdefghij"));
    EXPECT_EQ(refusing.files[kPath], "12345678");
    EXPECT_EQ(refusing.refusals, -1) << "refused once, then written";
}

// Only a disk that is almost full justifies overwriting in place; with room left, the disk is failing.
TEST_F(SafeFileTest, VerifiedWritesInPlaceUpToTheFreeSpaceOfAFullDisk) {
    constexpr std::uint64_t kFull = 3 + 65'536;
    disk.files[kPath] = "old";
    disk.failing = {kTemporary};
    disk.free = kFull;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
    disk.free = kFull - 1;
    EXPECT_TRUE(replaceVerified(disk, kPath, "new"));
    expectOnly("new");
}

TEST_F(SafeFileTest, VerifiedWritesInPlaceOnlyWhatSurelyFits) {
    disk.files[kPath] = "12345678";
    disk.failing = {kTemporary};
    disk.free = 2;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghijk"));
    expectOnly("12345678");
    EXPECT_EQ(countOf("write /disk/List.ini"), 0);
    EXPECT_TRUE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("abcdefghij");
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
    for (const auto* const fault : {kPath, kOther, kTemporary, u"/disk/USER.K7N"}) {
        disk.losing = fault;
        EXPECT_FALSE(replace());
        EXPECT_EQ(disk.files, old);
    }
}

TEST_F(SafeFileTestVerifiedPair, LeftoversOfAnEarlierAttemptAreReplaced) {
    disk.files[kTemporary] = "half";
    disk.files[u"/disk/USER.K7N"] = "half";
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
}

TEST_F(SafeFileTestVerifiedPair, LeftoversOfAnEarlierVersionAreRemoved) {
    disk.files[u"/disk/List.ini.k7new"] = std::string(disk.room - 20, 'x');
    disk.files[u"/disk/User.ini.k7new"] = "half";
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0) << "in place";
}

TEST_F(SafeFileTestVerifiedPair, WithRoomForOneNameTheFilesAreReplacedOneAfterTheOther) {
    disk.room = 1'000'000;
    disk.most = 3;
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0);
    EXPECT_EQ(countOf("write /disk/User.ini"), 0);
}

TEST_F(SafeFileTestVerifiedPair, WithoutRoomForANameTheFilesAreOverwritten) {
    disk.room = 1'000'000;
    disk.most = 2;
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 1);
    EXPECT_EQ(countOf("write /disk/User.ini"), 1);
}

TEST_F(SafeFileTestVerifiedPair, WithoutRoomForANameADamagedFileRestoresBoth) {
    disk.room = 1'000'000;
    disk.most = 2;
    for (const auto* const fault : {kPath, kOther}) {
        disk.losing = fault;
        EXPECT_FALSE(replace());
        EXPECT_EQ(disk.files, old);
    }
}

TEST_F(SafeFileTestVerifiedPair, WithoutRoomForANameAnUnreadableOrMissingFileStaysAsItIs) {
    disk.room = 1'000'000;
    disk.most = 2;
    disk.unreadable = {kOther};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
    disk.files.erase(kOther);
    disk.most = 1;
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, "old list"}}));
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
    disk.failing = {kTemporary};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
    EXPECT_EQ(std::count(disk.accesses.begin(), disk.accesses.end(), "write /disk/List.ini"), 0);
}

TEST_F(SafeFileTestVerifiedPair, AWholeNewFileIsNeverTornByPuttingTheOldOneBack) {
    // The second file is damaged, and then nothing can be written next to the first one.
    class Failing : public SmallDisk {
    public:
        FileRead readBack(std::u16string_view path) override {
            if (path == kOther) {
                failing = {kTemporary};
            }
            return SmallDisk::readBack(path);
        }
    };
    Failing failing;
    static_cast<SmallDisk&>(failing) = disk;
    failing.losing = kOther;
    EXPECT_FALSE(::replaceVerified(failing, {NewFile{kPath, "new list"}, NewFile{kOther, "new user"}}));
    EXPECT_EQ(failing.files[kPath], "new list");
    EXPECT_EQ(failing.files[kOther], "old user");
    EXPECT_EQ(std::count(failing.accesses.begin(), failing.accesses.end(), "write /disk/List.ini"), 0);
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
