#include "storage/files/SmallDisk.h"
#include "storage/files/VerifiedFiles.h"

namespace {

class VerifiedFilesTest : public SmallDiskTest {
protected:
    static bool replace(Files& files, std::u16string_view path, std::string_view bytes) {
        return replaceVerified(files, {NewFile{std::u16string(path), std::string(bytes)}});
    }
};

}  // namespace

TEST_F(VerifiedFilesTest, ReadsBackBeforeAndAfterReplacing) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replace(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses,
              (std::vector<std::string>{"read /disk/List.ini", "write /disk/LIST.K7N", "read /disk/LIST.K7N",
                                        "rename /disk/LIST.K7N", "onto /disk/List.ini", "read /disk/List.ini"}));
}

TEST_F(VerifiedFilesTest, KeepsTheOldFileWhenTheTemporaryFileIsDamaged) {
    disk.files[kPath] = "old";
    disk.losing = kTemporary;
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(VerifiedFilesTest, RestoresTheOldFileWhenTheNewOneIsDamagedAfterTheRename) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(VerifiedFilesTest, PutsTheOldFileBackASecondTimeWhenItIsDamaged) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    disk.losses = 3;  // the new file, then the old one before and after it is restored
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
    EXPECT_EQ(countOf("onto /disk/List.ini"), 3);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0) << "in place";
}

TEST_F(VerifiedFilesTest, WritesTheOldBytesBackASecondTimeWhenThatFails) {
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
    EXPECT_FALSE(replace(refusing, kPath, "abcdefghij"));
    EXPECT_EQ(refusing.files[kPath], "12345678");
    EXPECT_EQ(refusing.refusals, -1) << "refused once, then written";
}

// Only a disk that is almost full justifies overwriting in place; with room left, the disk is failing.
TEST_F(VerifiedFilesTest, WritesInPlaceUpToTheFreeSpaceOfAFullDisk) {
    constexpr std::uint64_t kFull = 3 + 65'536;
    disk.files[kPath] = "old";
    disk.failing = {kTemporary};
    disk.free = kFull;
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
    disk.free = kFull - 1;
    EXPECT_TRUE(replace(disk, kPath, "new"));
    expectOnly("new");
}

TEST_F(VerifiedFilesTest, WritesInPlaceOnlyWhatSurelyFits) {
    disk.files[kPath] = "12345678";
    disk.failing = {kTemporary};
    disk.free = 2;
    EXPECT_FALSE(replace(disk, kPath, "abcdefghijk"));
    expectOnly("12345678");
    EXPECT_EQ(countOf("write /disk/List.ini"), 0);
    EXPECT_TRUE(replace(disk, kPath, "abcdefghij"));
    expectOnly("abcdefghij");
}

TEST_F(VerifiedFilesTest, AFailedRenameKeepsTheOldFileAndLeavesNoTemporaryFile) {
    disk.files[kPath] = "old";
    disk.readOnly.insert(kPath);
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(VerifiedFilesTest, ADamagedNewFileIsOverwrittenIfNoTemporaryFileCanBeWritten) {
    class Damaging : public FakeFiles {
    public:
        bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
            const bool renamed = FakeFiles::rename(from, to, flush);
            files[std::u16string(to)] = "damaged";
            failing = {kTemporary};
            return renamed;
        }
    };
    Damaging damaging;
    damaging.files[kPath] = "old";
    EXPECT_FALSE(replace(damaging, kPath, "new"));
    EXPECT_EQ(damaging.files[kPath], "old");
}

TEST_F(VerifiedFilesTest, RemovesADamagedFileThatIsNew) {
    disk.losing = kPath;
    EXPECT_FALSE(replace(disk, kPath, "new"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(VerifiedFilesTest, OverwritesInPlaceWithoutRoomForBoth) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    EXPECT_TRUE(replace(disk, kPath, "abcdefghij"));
    expectOnly("abcdefghij");
}

TEST_F(VerifiedFilesTest, RestoresTheOldBytesWhenTheNewFileAloneDoesNotFit) {
    disk.files[kPath] = "12345678";
    disk.room = 9;
    EXPECT_FALSE(replace(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(VerifiedFilesTest, RestoresTheOldBytesWhenTheOverwrittenFileIsDamaged) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    disk.losing = kPath;
    EXPECT_FALSE(replace(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(VerifiedFilesTest, LeavesNothingOfANewFileThatDoesNotFit) {
    disk.room = 5;
    EXPECT_FALSE(replace(disk, kPath, "abcdefghij"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(VerifiedFilesTest, ReplacesAFileThatCannotBeRead) {
    disk.files[kPath] = "old";
    disk.unreadable = {kPath};
    EXPECT_TRUE(replace(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(std::count(disk.accesses.begin(), disk.accesses.end(), "write /disk/List.ini"), 0) << "in place";
}

TEST_F(VerifiedFilesTest, KeepsAnUnreadableFileWithoutRoomForTheNewOne) {
    disk.files[kPath] = "12345678";
    disk.unreadable = {kPath};
    disk.room = 12;
    EXPECT_FALSE(replace(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(VerifiedFilesTest, KeepsAnInaccessibleFile) {
    disk.files[kPath] = "old";
    disk.failing.insert(kPath);
    EXPECT_FALSE(replace(disk, kPath, "new"));
    expectOnly("old");
}

namespace {

class VerifiedFilesTestPair : public VerifiedFilesTest {
protected:
    VerifiedFilesTestPair() { disk.files = old; }
    // A disk with room for any content, but not for more files than these.
    void limitNames(std::size_t most) {
        disk.room = 1'000'000;
        disk.most = most;
    }
    bool replace() { return replaceVerified(disk, {NewFile{kPath, "new list"}, NewFile{kOther, "new user"}}); }

    const std::map<std::u16string, std::string> old{{kPath, "old list"}, {kOther, "old user"}};
    const std::map<std::u16string, std::string> both{{kPath, "new list"}, {kOther, "new user"}};
};

}  // namespace

TEST_F(VerifiedFilesTestPair, BothAreReplaced) {
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
}

TEST_F(VerifiedFilesTestPair, ADamagedSecondFileRestoresTheFirst) {
    for (const auto* const fault : {kPath, kOther, kTemporary, u"/disk/USER.K7N"}) {
        disk.losing = fault;
        EXPECT_FALSE(replace());
        EXPECT_EQ(disk.files, old);
    }
}

TEST_F(VerifiedFilesTestPair, LeftoversOfAnEarlierAttemptAreReplaced) {
    disk.files[kTemporary] = "half";
    disk.files[u"/disk/USER.K7N"] = "half";
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
}

TEST_F(VerifiedFilesTestPair, LeftoversOfAnEarlierVersionAreRemoved) {
    disk.files[u"/disk/List.ini.k7new"] = std::string(disk.room - 20, 'x');
    disk.files[u"/disk/User.ini.k7new"] = "half";
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0) << "in place";
}

TEST_F(VerifiedFilesTestPair, WithRoomForOneNameTheFilesAreReplacedOneAfterTheOther) {
    limitNames(3);
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 0);
    EXPECT_EQ(countOf("write /disk/User.ini"), 0);
}

TEST_F(VerifiedFilesTestPair, WithoutRoomForANameTheFilesAreOverwritten) {
    limitNames(2);
    EXPECT_TRUE(replace());
    EXPECT_EQ(disk.files, both);
    EXPECT_EQ(countOf("write /disk/List.ini"), 1);
    EXPECT_EQ(countOf("write /disk/User.ini"), 1);
}

TEST_F(VerifiedFilesTestPair, WithoutRoomForANameADamagedFileRestoresBoth) {
    limitNames(2);
    for (const auto* const fault : {kPath, kOther}) {
        disk.losing = fault;
        EXPECT_FALSE(replace());
        EXPECT_EQ(disk.files, old);
    }
}

TEST_F(VerifiedFilesTestPair, WithoutRoomForANameAnUnreadableOrMissingFileStaysAsItIs) {
    limitNames(2);
    disk.unreadable = {kOther};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
    disk.files.erase(kOther);
    disk.most = 1;
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, "old list"}}));
}

TEST_F(VerifiedFilesTestPair, EachUsesTheSpaceLeftByTheOther) {
    for (std::size_t room = 16; room < 40; ++room) {
        disk.files = old;
        disk.room = room;
        EXPECT_TRUE(replace()) << room;
        EXPECT_EQ(disk.files, both) << room;
    }
}

TEST_F(VerifiedFilesTestPair, ADiskThatFailsWithRoomLeftIsNotWrittenInPlace) {
    disk.room = 1'000'000;
    disk.failing = {kTemporary};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
    EXPECT_EQ(std::count(disk.accesses.begin(), disk.accesses.end(), "write /disk/List.ini"), 0);
}

TEST_F(VerifiedFilesTestPair, AFileOverwrittenInPlaceIsRestoredIfTheOtherOneFails) {
    disk.failing = {kTemporary, u"/disk/USER.K7N"};
    disk.free = 0;
    disk.readOnly = {kOther};
    EXPECT_FALSE(replace());
    EXPECT_EQ(disk.files, old);
}

TEST_F(VerifiedFilesTestPair, AWholeNewFileIsNeverTornByPuttingTheOldOneBack) {
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
    EXPECT_FALSE(replaceVerified(failing, {NewFile{kPath, "new list"}, NewFile{kOther, "new user"}}));
    EXPECT_EQ(failing.files[kPath], "new list");
    EXPECT_EQ(failing.files[kOther], "old user");
    EXPECT_EQ(std::count(failing.accesses.begin(), failing.accesses.end(), "write /disk/List.ini"), 0);
}

TEST_F(VerifiedFilesTestPair, WithoutOldFilesAFailureLeavesNoFile) {
    disk.files.clear();
    disk.losing = kOther;
    EXPECT_FALSE(replace());
    EXPECT_TRUE(disk.files.empty());
}
