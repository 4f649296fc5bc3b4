#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "fakes/FakeServices.h"
#include "fakes/ForwardingFiles.h"
#include "receiver/ReceiverFiles.h"

namespace {

class ReceiverFilesTest : public testing::Test {
protected:
    void SetUp() override {
        volumes.volumes = {{u"/disk/", DiskGeometry{1, 1024, 999}}};
        files.files[u"/disk/List.ini"] = "list";
        files.files[u"/disk/User.ini"] = "user";
        ASSERT_TRUE(receiver.findDisk());
    }

    FakeFiles files;
    FakeVolumes volumes;
    FakeClock clock;
    mFindDiskDriver driver{volumes, files};
    std::u16string root;
    Backup backup{u"/k7/", files, clock};
    ReceiverFiles receiver{driver, root, files, backup};
};

}  // namespace

TEST_F(ReceiverFilesTest, ASearchSetsTheRoot) {
    EXPECT_EQ(root, u"/disk/");
    volumes.volumes.clear();
    EXPECT_FALSE(receiver.findDisk());
    EXPECT_EQ(root, kUnknownDriver);
}

TEST_F(ReceiverFilesTest, BothFilesAreRead) {
    const auto pair = receiver.read();
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->list, "list");
    EXPECT_EQ(pair->user, "user");
    EXPECT_EQ(receiver.missingFile(), std::nullopt);
}

TEST_F(ReceiverFilesTest, TheFirstMissingFileIsNamed) {
    files.files.erase(u"/disk/User.ini");
    EXPECT_EQ(receiver.missingFile(), u"/disk/User.ini");
    files.files.erase(u"/disk/List.ini");
    EXPECT_EQ(receiver.missingFile(), u"/disk/List.ini");
    EXPECT_FALSE(receiver.read());
}

TEST_F(ReceiverFilesTest, IfOneFileCannotBeReadNeitherIsReturned) {
    files.unreadable = {u"/disk/User.ini"};
    EXPECT_EQ(receiver.missingFile(), std::nullopt);
    EXPECT_FALSE(receiver.read());
}

TEST_F(ReceiverFilesTest, ReplacingBacksUpTheOldFiles) {
    EXPECT_TRUE(receiver.replace({"new list", "new user"}));
    EXPECT_EQ(files.files[u"/disk/List.ini"], "new list");
    EXPECT_EQ(files.files[u"/disk/User.ini"], "new user");
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], "list");
    EXPECT_EQ(files.files[u"/k7/Backup/User-20261120T224501Z.ini"], "user");
}

TEST_F(ReceiverFilesTest, OfAnUnreadableFileTheReadablePartIsBackedUp) {
    files.unreadable = {u"/disk/List.ini"};
    EXPECT_TRUE(receiver.replace({"new list", "new user"}));
    EXPECT_EQ(files.files, (std::map<std::u16string, std::string>{{u"/disk/List.ini", "new list"},
                                                                  {u"/disk/User.ini", "new user"},
                                                                  {u"/k7/Backup/List.part-20261120T224501Z.ini", "li"},
                                                                  {u"/k7/Backup/User-20261120T224501Z.ini", "user"}}));
}

TEST_F(ReceiverFilesTest, AFailureLeavesBothOldFiles) {
    for (const std::u16string_view fault : {u"/disk/List.ini", u"/disk/USER.K7N"}) {
        files.readOnly = {std::u16string(fault)};
        EXPECT_FALSE(receiver.replace({"new list", "new user"}));
        EXPECT_EQ(files.files[u"/disk/List.ini"], "list");
        EXPECT_EQ(files.files[u"/disk/User.ini"], "user");
    }
}

namespace {

// Unmounts the disk when its folder has been opened, or in time before that.
class UnmountedFiles : public ForwardingFiles {
public:
    UnmountedFiles(FakeFiles& disk, FakeVolumes& volumes) : ForwardingFiles(disk), disk_(disk), volumes_(volumes) {}

    std::unique_ptr<Files> openFolder(std::u16string_view folder) override {
        EXPECT_EQ(folder, u"/disk");
        volumes_.volumes.clear();
        return disk_.openFolder(folder);
    }

private:
    FakeFiles& disk_;
    FakeVolumes& volumes_;
};

}  // namespace

TEST_F(ReceiverFilesTest, ADiskThatHasGoneSinceItWasFoundIsNotTouched) {
    UnmountedFiles unmounted(files, volumes);
    ReceiverFiles late(driver, root, unmounted, backup);
    files.accesses.clear();
    EXPECT_FALSE(late.replace({"new list", "new user"}));
    EXPECT_FALSE(late.read());
    EXPECT_TRUE(files.accesses.empty());
    EXPECT_EQ(files.files[u"/disk/List.ini"], "list");
}

TEST_F(ReceiverFilesTest, ADiskThatCannotBeOpenedIsNotTouched) {
    files.failing = {u"/disk"};
    EXPECT_FALSE(receiver.replace({"new list", "new user"}));
    EXPECT_FALSE(receiver.read());
    EXPECT_EQ(files.files.size(), 2U);
}
