#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/TemporaryFolder.h"

namespace {

int flushedFiles = 0;
int flushedFolders = 0;

}  // namespace

// Counts the flushes of this program, then flushes.
extern "C" int fsync(int descriptor) {
    struct stat status = {};
    const bool isFolder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    ++(isFolder ? flushedFolders : flushedFiles);
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace {

class PosixFilesTest : public testing::Test {
protected:
    void SetUp() override { flushedFiles = flushedFolders = 0; }

    TemporaryFolder folder;
    PosixFiles files;
};

TEST_F(PosixFilesTest, WritingNeverFollowsALink) {
    ASSERT_TRUE(files.write(folder.at(u"target"), "precious", Flush::Now));
    ASSERT_EQ(::symlink(folder.native("target").c_str(), folder.native("link").c_str()), 0);
    EXPECT_FALSE(files.write(folder.at(u"link"), "x", Flush::Now));
    EXPECT_FALSE(files.append(folder.at(u"link"), "x"));
    EXPECT_EQ(files.read(folder.at(u"target")).bytes, "precious");
    EXPECT_EQ(files.read(folder.at(u"link")).bytes, "precious");
}

TEST_F(PosixFilesTest, ADanglingLinkExists) {
    ASSERT_EQ(::symlink(folder.native("nothing").c_str(), folder.native("link").c_str()), 0);
    EXPECT_TRUE(files.exists(folder.at(u"link")));
    EXPECT_EQ(files.size(folder.at(u"link")), std::nullopt);
    EXPECT_EQ(files.read(folder.at(u"link")).bytes, std::nullopt);
    EXPECT_FALSE(files.read(folder.at(u"link")).isMissing);
}

TEST_F(PosixFilesTest, APipeIsNoFileAndDoesNotBlock) {
    ASSERT_EQ(::mkfifo(folder.native("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.read(folder.at(u"pipe")).bytes, std::nullopt);
    EXPECT_FALSE(files.write(folder.at(u"pipe"), "x", Flush::Now));
}

TEST_F(PosixFilesTest, AFileThatFailsAtItsFirstByteHasNoPart) {
    const FileRead read = files.read(u"/proc/self/mem");  // nothing is mapped at address 0
    EXPECT_EQ(read.bytes, std::nullopt);
    EXPECT_FALSE(read.isMissing);
    EXPECT_EQ(read.part, "");
}

TEST_F(PosixFilesTest, UnitsAreReadToTheEndOfAFileLongerThanItsSize) {
    ASSERT_EQ(files.size(u"/proc/version"), 0U);
    const auto read = files.readUnits(u"/proc/version", 10'000);
    ASSERT_TRUE(read);
    EXPECT_GT(read->bytes().size(), 1U);
    EXPECT_EQ(read->bytes(), files.read(u"/proc/version").bytes);
    EXPECT_FALSE(files.readUnits(u"/proc/version", 5));
}

TEST_F(PosixFilesTest, AFileThatFailsHasNoUnits) { EXPECT_FALSE(files.readUnits(u"/proc/self/mem", 100)); }

TEST_F(PosixFilesTest, ANewFileHasTheUsersDefaultPermissions) {
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(files.write(folder.at(u"new"), "x", Flush::Now));
    ::umask(mask);
    struct stat status = {};
    ASSERT_EQ(::stat(folder.native("new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(PosixFilesTest, AFileInAMissingFolderIsNotWritten) {
    EXPECT_FALSE(files.write(folder.at(u"none/List.ini"), "x", Flush::Now));
    EXPECT_FALSE(files.append(folder.at(u"none/List.ini"), "x"));
}

// As the folder below a mount point does when the volume is unmounted.
TEST_F(PosixFilesTest, AFolderThatTakesThePlaceOfAnOpenedOneIsNotTouched) {
    ASSERT_TRUE(files.createFolder(folder.at(u"disk")));
    ASSERT_TRUE(files.write(folder.at(u"disk/old"), "old", Flush::Now));
    const auto disk = files.openFolder(folder.at(u"disk"));
    ASSERT_TRUE(disk);
    ASSERT_EQ(::rename(folder.native("disk").c_str(), folder.native("gone").c_str()), 0);
    ASSERT_TRUE(files.createFolder(folder.at(u"disk")));

    EXPECT_TRUE(disk->createFolder(folder.at(u"disk/sub")));
    EXPECT_TRUE(disk->write(folder.at(u"disk/new"), "new", Flush::Now));
    EXPECT_TRUE(disk->append(folder.at(u"disk/log"), "line"));
    EXPECT_TRUE(disk->rename(folder.at(u"disk/new"), folder.at(u"disk/old"), Flush::Now));
    EXPECT_TRUE(disk->clearAttributes(folder.at(u"disk/old")));
    EXPECT_EQ(disk->readBack(folder.at(u"disk/old")).bytes, "new");
    EXPECT_EQ(disk->size(folder.at(u"disk/old")), 3U);
    EXPECT_TRUE(disk->freeSpace(folder.at(u"disk")));
    EXPECT_EQ(disk->list(folder.at(u"disk")), (std::vector<std::u16string>{u"log", u"old", u"sub"}));
    EXPECT_TRUE(disk->remove(folder.at(u"disk/log")));
    EXPECT_TRUE(disk->removeFolder(folder.at(u"disk/sub")));
    EXPECT_TRUE(disk->flushFolderOf(folder.at(u"disk/old")));

    EXPECT_EQ(files.list(folder.at(u"disk")), std::vector<std::u16string>{});
    EXPECT_EQ(files.list(folder.at(u"gone")), std::vector<std::u16string>{u"old"});
    EXPECT_EQ(files.read(folder.at(u"gone/old")).bytes, "new");
}

// A flush of the folder would double the time of a snapshot.
TEST_F(PosixFilesTest, WritingAndAppendingFlushTheFileOnly) {
    ASSERT_TRUE(files.write(folder.at(u"file"), "one", Flush::Now));
    EXPECT_EQ(flushedFiles, 1);
    ASSERT_TRUE(files.append(folder.at(u"file"), "two"));
    EXPECT_EQ(flushedFiles, 2);
    ASSERT_TRUE(files.append(folder.at(u"new"), "three"));
    EXPECT_EQ(flushedFiles, 3);
    EXPECT_EQ(flushedFolders, 0);
    ASSERT_TRUE(files.flushFolderOf(folder.at(u"new")));
    EXPECT_EQ(flushedFolders, 1);
}

TEST_F(PosixFilesTest, TwoFilesAreReplacedWithOneFlushOfTheFolder) {
    for (const char16_t* name : {u"a", u"b"}) {
        ASSERT_TRUE(files.write(folder.at(name), "old", Flush::Now));
    }
    SetUp();
    for (const char16_t* name : {u"a", u"b"}) {
        ASSERT_TRUE(files.write(folder.at(u"new"), "new", Flush::Now));
        ASSERT_TRUE(files.rename(folder.at(u"new"), folder.at(name), Flush::Later));
    }
    EXPECT_EQ(flushedFiles, 2);
    EXPECT_EQ(flushedFolders, 0);
    ASSERT_TRUE(files.flushFolderOf(folder.at(u"b")));
    EXPECT_EQ(flushedFolders, 1);
    // On FAT the new entry of each file is flushed with the file.
    const PosixPath replaced{AT_FDCWD, folder.native("a")};
    EXPECT_EQ(flushedFiles, PosixFile(replaced, O_RDONLY).isLocatedByEntry() ? 4 : 2);
}

TEST_F(PosixFilesTest, AMissingFolderIsNotOpened) { EXPECT_FALSE(files.openFolder(folder.at(u"none"))); }

}  // namespace
