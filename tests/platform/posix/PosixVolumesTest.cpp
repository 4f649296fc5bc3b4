#include <gtest/gtest.h>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixVolumes.h"
#include "platform/posix/TemporaryFolder.h"

namespace {

class PosixVolumesTest : public testing::Test {
protected:
    TemporaryFolder folder;
};

TEST_F(PosixVolumesTest, GeometryIsThatOfTheMountedFileSystem) {
    const std::string point = folder.native("");
    ASSERT_TRUE(
        PosixFiles().write(folder.at(u"table"), "22 1 8:1 / " + point + " rw - ext4 /dev/sda1 rw\n", Flush::Now));
    PosixVolumes volumes(folder.native("table"));
    const std::vector<std::u16string> roots = volumes.roots();
    ASSERT_EQ(roots, (std::vector<std::u16string>{folder.at(u"/")}));
    EXPECT_TRUE(volumes.isPresent(roots[0]));
    EXPECT_NE(volumes.label(roots[0]), std::nullopt);
    const std::optional<DiskGeometry> geometry = volumes.geometry(roots[0]);
    ASSERT_TRUE(geometry.has_value());
    EXPECT_EQ(geometry->sectorsPerCluster, 1U);
    EXPECT_GT(geometry->bytesPerSector, 0U);
    EXPECT_GT(geometry->totalClusters, 0U);
    // Paths outside the mount table are never queried.
    EXPECT_FALSE(volumes.isPresent(u"/"));
    EXPECT_EQ(volumes.geometry(u"/"), std::nullopt);
    EXPECT_EQ(volumes.label(u"/"), std::nullopt);
}

}  // namespace
