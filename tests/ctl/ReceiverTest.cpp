#include "ctl/CtlFixture.h"

namespace {

class ReceiverTest : public CtlTest {
protected:
    void SetUp() override {
        CtlTest::SetUp();
        connectReceiver();
    }
};

const std::string kOther = "[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=theirs\nFrequency=98500\n";

}  // namespace

TEST_F(ReceiverTest, TheStatusComparesTheLists) {
    EXPECT_EQ(run({"receiver", "status"}), 0);
    EXPECT_EQ(out,
              "Root:     /disk/\nCapacity: 1022976 bytes\nRecords:  DRM 2 AM 2 FM 1 Favourite 2\n"
              "The working copies hold the same lists.\n");
    files.files[u"/disk/User.ini"] = "[Total]\nfavnumber=0\n";
    EXPECT_EQ(run({"receiver", "status"}), 1);
    EXPECT_EQ(out.substr(out.find("The working")),
              "The working copies differ (+ and -: only in the working copies, on the receiver):\n"
              "+ Favourite 1: Aurora | 6095  kHz | DRM\n+ Favourite 2: City | 98.5  MHz | FM\n");
    EXPECT_EQ(run({"receiver", "status", "--json"}), 1);
    EXPECT_NE(out.find("\"capacity\": 1022976"), out.npos);
}

TEST_F(ReceiverTest, LoadingReplacesTheWorkingCopies) {
    files.files[u"/disk/List.ini"] = kOther;
    EXPECT_EQ(run({"receiver", "load", "--dry-run"}), 1);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
    EXPECT_EQ(run({"receiver", "load"}), 0);
    EXPECT_EQ(out, "DRM: 2 -> 0 records\nAM: 2 -> 0 records\nFM: 1 -> 1 records\nFavourite: 2 -> 2 records\n");
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], kCtlList);
    EXPECT_EQ(run({"receiver", "status"}), 0);
}

TEST_F(ReceiverTest, SavingReplacesTheReceiversFiles) {
    files.files[u"/disk/List.ini"] = kOther;
    EXPECT_EQ(run({"receiver", "save", "--dry-run"}), 1);
    EXPECT_EQ(files.files[u"/disk/List.ini"], kOther);
    EXPECT_EQ(run({"receiver", "save"}), 0);
    EXPECT_EQ(out, "DRM: 0 -> 2 records\nAM: 0 -> 2 records\nFM: 1 -> 1 records\nFavourite: 2 -> 2 records\n");
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], kOther);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList) << "the working copies are only read";
    EXPECT_EQ(run({"receiver", "status"}), 0);
}

TEST_F(ReceiverTest, SavingWorksOnADiskWithoutFiles) {
    files.files.erase(u"/disk/List.ini");
    files.files.erase(u"/disk/User.ini");
    EXPECT_EQ(run({"receiver", "status"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /disk/List.ini: no such file\n");
    EXPECT_EQ(run({"receiver", "save"}), 0);
    EXPECT_EQ(run({"receiver", "status"}), 0);
}

TEST_F(ReceiverTest, WithoutADiskNothingIsChanged) {
    volumes.volumes.clear();
    for (const std::string command : {"status", "load", "save"}) {
        EXPECT_EQ(run({"receiver", command}), 4) << command;
    }
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
}

TEST_F(ReceiverTest, AnOpenWindowIsNotDisturbed) {
    singleInstance.running = true;
    EXPECT_EQ(run({"receiver", "load"}), 5);
    EXPECT_EQ(run({"receiver", "save"}), 5);
    EXPECT_EQ(run({"receiver", "status"}), 0);
}

TEST_F(ReceiverTest, AFailedSaveLeavesTheReceiversFiles) {
    files.files[u"/disk/List.ini"] = kOther;
    files.readOnly = {u"/disk/User.ini"};
    EXPECT_EQ(run({"receiver", "save"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /disk/: the lists cannot be written and read back; nothing has been changed\n");
    EXPECT_EQ(files.files[u"/disk/List.ini"], kOther);
    EXPECT_EQ(files.files[u"/disk/User.ini"], kCtlUser);
}
