// What only a POSIX system has: links, mount tables, permissions of a program's folder.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/posix/MountTable.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixProgramFolders.h"
#include "platform/posix/PosixVolumes.h"
#include "platform/qt/Units.h"

namespace {

class SystemTest : public testing::Test {
protected:
    std::u16string at(const QString& name) const { return fromQt(folder.filePath(name)); }
    std::string native(const QString& name) const { return folder.filePath(name).toStdString(); }

    QTemporaryDir folder;
    PosixFiles files;
};

TEST_F(SystemTest, WritingNeverFollowsALink) {
    ASSERT_TRUE(files.write(at("target"), "precious"));
    ASSERT_EQ(::symlink(native("target").c_str(), native("link").c_str()), 0);
    EXPECT_FALSE(files.write(at("link"), "x"));
    EXPECT_FALSE(files.append(at("link"), "x"));
    EXPECT_EQ(files.read(at("target")), "precious");
    EXPECT_EQ(files.read(at("link")), "precious");
}

TEST_F(SystemTest, ANameThatLeadsNowhereExists) {
    ASSERT_EQ(::symlink(native("nothing").c_str(), native("link").c_str()), 0);
    EXPECT_TRUE(files.exists(at("link")));
    EXPECT_EQ(files.size(at("link")), std::nullopt);
}

TEST_F(SystemTest, APipeIsNoFileAndDoesNotHang) {
    ASSERT_EQ(::mkfifo(native("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.read(at("pipe")), std::nullopt);
    EXPECT_FALSE(files.write(at("pipe"), "x"));
}

TEST_F(SystemTest, ANewFileHasTheUsersDefaultPermissions) {
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(files.write(at("new"), "x"));
    ::umask(mask);
    struct stat status {};
    ASSERT_EQ(::stat(native("new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(SystemTest, AMissingFolderCannotTakeAFile) {
    EXPECT_FALSE(files.write(at("none/List.ini"), "x"));
    EXPECT_FALSE(files.append(at("none/List.ini"), "x"));
}

TEST_F(SystemTest, OnlyDisksAreCandidates) {
    const std::string table =
        "21 1 0:20 / /proc rw,nosuid shared:1 - proc proc rw\n"
        "22 1 8:1 / / rw,relatime shared:2 - ext4 /dev/sda1 rw\n"
        "23 22 0:40 / /mnt/dead rw - nfs4 server:/export rw\n"
        "24 22 0:41 / /mnt/share rw - cifs //server/share rw\n"
        "25 22 8:17 / /media/with\\040blank rw shared:3 master:4 - vfat /dev/sdb1 rw\n"
        "26 22 0:42 / /mnt/ssh rw - fuse.sshfs user@host:/home rw\n"
        "27 22 0:43 / /run rw - tmpfs tmpfs rw\n"
        "28 22 7:0 / /media/a rw - ext2 /dev/loop0 rw\n"
        "garbage\n"
        "29 22 8:17 / /media/with\\040blank rw - vfat /dev/sdb1 rw\n";
    EXPECT_EQ(diskMountPoints(table), (std::set<std::string>{"/", "/media/a", "/media/with blank"}));
}

TEST_F(SystemTest, AFuseFileSystemOverALocalImageIsADisk) {
    ASSERT_TRUE(files.write(at("image"), "x"));
    const std::string table = "28 22 0:50 / /media/a rw - fuse.ext " + native("image") + " rw\n";
    EXPECT_EQ(diskMountPoints(table), (std::set<std::string>{"/media/a"}));
}

TEST_F(SystemTest, GeometryIsThatOfTheMountedFileSystem) {
    const std::string point = folder.path().toStdString();
    ASSERT_TRUE(files.write(at("table"), "22 1 8:1 / " + point + " rw - ext4 /dev/sda1 rw\n"));
    PosixVolumes volumes(native("table"));
    const std::vector<std::u16string> roots = volumes.roots();
    ASSERT_EQ(roots, (std::vector<std::u16string>{fromQt(folder.path() + '/')}));
    EXPECT_TRUE(volumes.isPresent(roots[0]));
    EXPECT_NE(volumes.label(roots[0]), std::nullopt);
    const std::optional<DiskGeometry> geometry = volumes.geometry(roots[0]);
    ASSERT_TRUE(geometry.has_value());
    EXPECT_EQ(geometry->sectorsPerCluster, 1U);
    EXPECT_GT(geometry->bytesPerSector, 0U);
    EXPECT_GT(geometry->totalClusters, 0U);
    // Whatever is not in the table is not asked.
    EXPECT_FALSE(volumes.isPresent(u"/"));
    EXPECT_EQ(volumes.geometry(u"/"), std::nullopt);
    EXPECT_EQ(volumes.label(u"/"), std::nullopt);
}

TEST_F(SystemTest, OnlyAFolderThatIsThereCanBeWritten) {
    PosixProgramFolders folders;
    EXPECT_EQ(folders.ofExecutable(), fromQt(QCoreApplication::applicationDirPath() + '/'));
    EXPECT_TRUE(folders.canWrite(fromQt(folder.path() + '/')));
    EXPECT_FALSE(folders.canWrite(at("none/")));
}

TEST_F(SystemTest, TheUsersDataFolderIsMade) {
    QStandardPaths::setTestModeEnabled(true);
    const QString expected = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/SubOfATest";
    EXPECT_EQ(PosixProgramFolders().ofUser(u"SubOfATest"), fromQt(expected + '/'));
    EXPECT_TRUE(QDir(expected).exists());
    QDir(expected).removeRecursively();
    QStandardPaths::setTestModeEnabled(false);
}

}  // namespace
