#include <gtest/gtest.h>

#include "platform/posix/MountTable.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/TemporaryFolder.h"

namespace {

class MountTableTest : public testing::Test {
protected:
    TemporaryFolder folder;
};

TEST_F(MountTableTest, OnlyDisksAreCandidates) {
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

TEST_F(MountTableTest, AFuseFileSystemOverALocalImageIsADisk) {
    ASSERT_TRUE(PosixFiles().write(folder.at(u"image"), "x", Flush::Now));
    const std::string table = "28 22 0:50 / /media/a rw - fuse.ext " + folder.native("image") + " rw\n";
    EXPECT_EQ(diskMountPoints(table), (std::set<std::string>{"/media/a"}));
}

}  // namespace
