#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "storage/SafeFile.h"

namespace {

constexpr auto kPath = u"/disk/List.ini";
constexpr auto kBeside = u"/disk/List.ini.k7new";

// A disk of limited room, with a device that may lose what has been written to a path.
class SmallDisk : public FakeFiles {
public:
    bool write(std::u16string_view path, std::string_view bytes) override {
        if (!FakeFiles::write(path, bytes)) {
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
    std::optional<std::string> readBack(std::u16string_view path) override {
        auto bytes = FakeFiles::readBack(path);
        if (bytes && path == losing) {
            bytes->back() = '?';
        }
        return bytes;
    }

    std::size_t room = 1000;
    std::u16string losing;
};

class SafeFile : public testing::Test {
protected:
    void expectOnly(const std::string& content) {
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, content}}));
    }
    SmallDisk disk;
};

}  // namespace

TEST_F(SafeFile, ReplacesInOneStep) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceFile(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses, (std::vector<std::string>{"write /disk/List.ini.k7new", "rename /disk/List.ini.k7new",
                                                       "onto /disk/List.ini"}));
}

TEST_F(SafeFile, CreatesAMissingFile) {
    EXPECT_TRUE(replaceFile(disk, kPath, "new"));
    expectOnly("new");
}

TEST_F(SafeFile, AFullDiskLeavesTheOldFileAndNothingBeside) {
    disk.files[kPath] = "old";
    disk.room = 5;
    EXPECT_FALSE(replaceFile(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFile, AFailedRenameLeavesTheOldFileAndNothingBeside) {
    disk.files[kPath] = "old";
    disk.readOnly.insert(kPath);
    EXPECT_FALSE(replaceFile(disk, kPath, "new"));
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFile, VerifiedReadsBackBeforeAndAfterReplacing) {
    disk.files[kPath] = "old";
    EXPECT_TRUE(replaceVerified(disk, kPath, "new"));
    expectOnly("new");
    EXPECT_EQ(disk.accesses, (std::vector<std::string>{"read /disk/List.ini", "write /disk/List.ini.k7new",
                                                       "read /disk/List.ini.k7new", "rename /disk/List.ini.k7new",
                                                       "onto /disk/List.ini", "read /disk/List.ini"}));
}

TEST_F(SafeFile, VerifiedKeepsTheOldFileWhenTheNewOneIsDamagedBeside) {
    disk.files[kPath] = "old";
    disk.losing = kBeside;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFile, VerifiedPutsTheOldFileBackWhenTheNewOneIsDamagedInPlace) {
    disk.files[kPath] = "old";
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
}

TEST_F(SafeFile, VerifiedRemovesADamagedFileThatWasNotThereBefore) {
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(SafeFile, VerifiedOverwritesInPlaceWithoutRoomForBoth) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    EXPECT_TRUE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("abcdefghij");
}

TEST_F(SafeFile, VerifiedPutsTheOldBytesBackWhenEvenTheNewOneAloneHasNoRoom) {
    disk.files[kPath] = "12345678";
    disk.room = 9;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(SafeFile, VerifiedPutsTheOldBytesBackWhenTheOverwrittenFileIsDamaged) {
    disk.files[kPath] = "12345678";
    disk.room = 12;
    disk.losing = kPath;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    expectOnly("12345678");
}

TEST_F(SafeFile, VerifiedLeavesNothingOfANewFileThatDoesNotFit) {
    disk.room = 5;
    EXPECT_FALSE(replaceVerified(disk, kPath, "abcdefghij"));
    EXPECT_TRUE(disk.files.empty());
}

TEST_F(SafeFile, VerifiedDoesNotTouchAFileThatCannotBeKept) {
    disk.files[kPath] = "old";
    disk.failing.insert(kPath);
    EXPECT_FALSE(replaceVerified(disk, kPath, "new"));
    expectOnly("old");
    EXPECT_EQ(disk.accesses, std::vector<std::string>{"read /disk/List.ini"});
}
