#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "receiver/mFindDiskDriver.h"

namespace {

constexpr DiskGeometry kReceiver{2, 512, 999};
constexpr DiskGeometry kOneBlockMore{2, 512, 1000};

class mFindDiskDriverTest : public testing::Test {
protected:
    void addVolume(std::u16string root, std::optional<DiskGeometry> geometry, std::optional<std::u16string> label = u"",
                   bool present = true) {
        volumes.volumes.push_back({std::move(root), geometry, std::move(label), present});
    }
    std::string found() { return narrow(finder.FindReceiverDisk()); }

    FakeVolumes volumes;
    FakeFiles files;
    mFindDiskDriver finder{volumes, files};
};

TEST_F(mFindDiskDriverTest, TheLowerOfTwoReceiversIsReturned) {
    addVolume(u"c:\\", kOneBlockMore);
    addVolume(u"e:\\", kReceiver);
    addVolume(u"f:\\", kReceiver);
    EXPECT_EQ(found(), "e:\\");
    EXPECT_EQ(volumes.geometryQueries, 2);
}

TEST_F(mFindDiskDriverTest, TheLabelIsIgnored) {
    addVolume(u"d:\\", kOneBlockMore, u"STNMEMORY");
    EXPECT_EQ(found(), "Unkonwn Driver");
    addVolume(u"e:\\", kReceiver, u"HOLIDAY");
    EXPECT_EQ(found(), "e:\\");
}

TEST_F(mFindDiskDriverTest, TheRootIsReturnedWithItsSeparator) {
    addVolume(u"/media/radio/", kReceiver);
    EXPECT_EQ(found(), "/media/radio/");
}

TEST_F(mFindDiskDriverTest, WithoutVolumesTheDriveIsUnknown) { EXPECT_EQ(found(), "Unkonwn Driver"); }

TEST_F(mFindDiskDriverTest, TheSizeOfAnAbsentRootIsNotQueried) {
    addVolume(u"a:\\", kReceiver, u"", false);
    EXPECT_EQ(found(), "Unkonwn Driver");
    EXPECT_EQ(volumes.geometryQueries, 0);
}

TEST_F(mFindDiskDriverTest, AnUnreadableVolumeIsSkipped) {
    addVolume(u"d:\\", kReceiver, std::nullopt);
    addVolume(u"e:\\", std::nullopt);
    addVolume(u"f:\\", kReceiver);
    EXPECT_EQ(found(), "f:\\");
    EXPECT_EQ(volumes.geometryQueries, 2);
}

TEST_F(mFindDiskDriverTest, EachSearchStartsAgain) {
    addVolume(u"e:\\", kReceiver);
    EXPECT_EQ(found(), "e:\\");
    volumes.volumes.clear();
    EXPECT_EQ(found(), "Unkonwn Driver");
}

struct CapacityCase {
    DiskGeometry geometry;
    bool isReceiver;
};

class mFindDiskDriverTestCapacity : public mFindDiskDriverTest, public testing::WithParamInterface<CapacityCase> {};

TEST_P(mFindDiskDriverTestCapacity, IsExactlyTheReceivers) {
    addVolume(u"e:\\", GetParam().geometry);
    EXPECT_EQ(found(), GetParam().isReceiver ? "e:\\" : "Unkonwn Driver");
}

INSTANTIATE_TEST_SUITE_P(Bounds, mFindDiskDriverTestCapacity,
                         testing::Values(CapacityCase{{1, 1024, 999}, true}, CapacityCase{{1, 1, 1'022'976}, true},
                                         CapacityCase{{1, 512, 1998}, true}, CapacityCase{{1, 1, 1'022'975}, false},
                                         CapacityCase{{1, 1, 1'022'977}, false}, CapacityCase{{1, 512, 1997}, false},
                                         CapacityCase{{1, 512, 1999}, false}, CapacityCase{{0, 0, 0}, false},
                                         // In 32 or 64 bits these products would overflow to the receiver's capacity.
                                         CapacityCase{{1, 1, 1'022'976 + (1ULL << 32)}, false},
                                         CapacityCase{{1, 1024, 999 + (1ULL << 54)}, false}));

TEST_F(mFindDiskDriverTest, ClearingAttributesMakesAFileWritable) {
    files.files[u"/d/List.ini"] = "x";
    files.readOnly.insert(u"/d/List.ini");
    finder.ClearFileAttributes(u"/d/List.ini");
    EXPECT_TRUE(files.write(u"/d/List.ini", "y", Flush::Now));
}

TEST_F(mFindDiskDriverTest, ClearingAttributesOfAMissingFileIsSilent) {
    finder.ClearFileAttributes(u"/d/none");
    EXPECT_EQ(files.accesses, (std::vector<std::string>{"clearAttributes /d/none"}));
    EXPECT_TRUE(files.files.empty());
}

}  // namespace
