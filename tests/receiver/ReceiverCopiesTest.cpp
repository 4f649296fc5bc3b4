#include "fakes/FakeControls.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "receiver/ReceiverCopies.h"
#include "storage/StorageFixture.h"

using namespace std::string_literals;

namespace {

const std::string kList =
    "[Total]\r\ndrmnumber=1\r\namnumber=1\r\nfmnumber=1\r\n[DRMSchedule0]\r\nProgramme=\xE4\xB8\xAD\r\n"
    "[AMSchedule0]\r\nProgramme=M\r\nFrequency=600\r\n[FMSchedule0]\r\nProgramme=V\r\nFrequency=87500\r\n";
const std::string kUser =
    "\xEF\xBB\xBF[Version]\r\nmajor=3\r\n[Total]\r\nfavnumber=1\r\n"
    "[FAVSchedule0]\r\nProgramme=F\r\nFrequency=98500\r\nTYPE=FM\r\n";

class ReceiverCopiesTest : public StorageTest {
protected:
    void SetUp() override {
        volumes.volumes = {{u"/disk/", DiskGeometry{1, 1024, 999}}};
        files.files[u"/disk/List.ini"] = kList;
        files.files[u"/disk/User.ini"] = kUser;
        listFile() = "old list";
        userFile() = "old user";
        drm.appendRow({u"shown"});
    }
    bool gridsAreUntouched() const { return rowsOf(drm, 1) == Rows{{u"shown"}} && favourites.rowCount() == 0; }
    bool noTemporaryFileIsLeft() const {
        return std::none_of(files.files.begin(), files.files.end(),
                            [](const auto& file) { return file.first.ends_with(u".K7N"); });
    }

    FakeVolumes volumes;
    FakeWindowHook hook;
    FakeMessageBox box;
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    mMsgBox messages{box, hook};
    mFindDiskDriver driver{volumes, files};
    Totals totals{tabs, statusBar, allGrids()};
    std::u16string receiverRoot;
    FakeClock clock;
    Backup backup{u"/k7/", files, clock};
    ReceiverFiles receiverFiles{driver, receiverRoot, files, backup};
    Recovery recovery{u"/k7/", files};
    ReceiverCopies receiver{lists, {copies, loader, saver, recovery, backup}, receiverFiles, {messages, totals}, files};
};

}  // namespace

TEST_F(ReceiverCopiesTest, ReloadShowsTheReceiversLists) {
    receiver.ReloadFromReceiver();
    EXPECT_EQ(receiverRoot, u"/disk/");
    EXPECT_EQ(rowsOf(drm, 4), (Rows{{u"中", u"", u"", u""}}));
    EXPECT_EQ(rowsOf(am, 3), (Rows{{u"M", u"600", u"MW"}}));
    EXPECT_EQ(rowsOf(fm, 3), (Rows{{u"V", u"87.5", u"VHF"}}));
    EXPECT_EQ(rowsOf(favourites, 3), (Rows{{u"F", u"98.5  MHz", u"FM"}}));
    EXPECT_EQ(settings.VersionMajor, u"3");
    for (const RowStore& list : grids) {
        EXPECT_TRUE(list.columns().empty()) << "no columns are added";
    }
    EXPECT_TRUE(listFile().starts_with("\xFF\xFE[\0T\0"s));
    EXPECT_EQ(files.files[u"/disk/List.ini"], kList);
}

TEST_F(ReceiverCopiesTest, ReloadShowsTheTotalsBeforeAndAfter) {
    drm.appendRow({u"second"});
    receiver.ReloadFromReceiver();
    EXPECT_EQ(statusBar.history,
              (std::vector<std::u16string>{u"Total Number Of DRM List: 2", u"Total Number Of DRM List: 1"}));
}

TEST_F(ReceiverCopiesTest, ReloadTwiceShowsTheRowsOnceAndTheFileAsItIsNow) {
    receiver.ReloadFromReceiver();
    files.files[u"/disk/List.ini"] = "[Total]\ndrmnumber=1\n[DRMSchedule0]\nProgramme=new\n";
    receiver.ReloadFromReceiver();
    EXPECT_EQ(rowsOf(drm, 1), (Rows{{u"new"}}));
    EXPECT_EQ(am.rowCount(), 0);
    EXPECT_EQ(favourites.rowCount(), 1);
}

TEST_F(ReceiverCopiesTest, ReloadReadsTheFilesAgain) {
    listFile() = utf16File(u"[Total]\r\nfmnumber=5\r\n");
    loader.LoadDrmList(false);
    receiver.ReloadFromReceiver();
    EXPECT_EQ(fm.rowCount(), 1);
    EXPECT_EQ(am.rowCount(), 1);
}

TEST_F(ReceiverCopiesTest, WithoutDiskThereIsAMessageAndNothingElse) {
    volumes.volumes.clear();
    box.expect({u"Can't find disk,please connect DRM receiver to PC"});
    receiver.ReloadFromReceiver();
    EXPECT_EQ(receiverRoot, u"Unkonwn Driver");
    EXPECT_TRUE(gridsAreUntouched());
    EXPECT_TRUE(files.accesses.empty());
}

TEST_F(ReceiverCopiesTest, AMissingListFileIsNamedAndStopsTheCommand) {
    files.files.erase(u"/disk/List.ini");
    box.expect({u"Can't find any file: /disk/List.ini!Please confirm whether the file is exist"});
    receiver.ReloadFromReceiver();
    EXPECT_TRUE(gridsAreUntouched());
    EXPECT_EQ(listFile(), "old list");
    EXPECT_EQ(userFile(), "old user");
}

TEST_F(ReceiverCopiesTest, AMissingUserFileIsNamedAndLeavesBothWorkingCopies) {
    files.files.erase(u"/disk/User.ini");
    box.expect({u"Can't find any file: /disk/User.ini!Please confirm whether the file is exist"});
    receiver.ReloadFromReceiver();
    EXPECT_TRUE(gridsAreUntouched());
    EXPECT_EQ(listFile(), "old list") << "the two files are replaced as a pair";
    EXPECT_EQ(userFile(), "old user");
    EXPECT_TRUE(statusBar.history.empty());
}

TEST_F(ReceiverCopiesTest, ReadOnlyWorkingCopiesAreMadeWritableFirst) {
    files.readOnly = {copies.ListFilePath, copies.UserFilePath};
    receiver.ReloadFromReceiver();
    EXPECT_EQ(rowsOf(drm, 1), (Rows{{u"中"}}));
    EXPECT_TRUE(files.readOnly.empty());
}

TEST_F(ReceiverCopiesTest, MissingWorkingCopiesAreCreated) {
    files.files.erase(copies.ListFilePath);
    files.files.erase(copies.UserFilePath);
    receiver.ReloadFromReceiver();
    EXPECT_EQ(rowsOf(drm, 1), (Rows{{u"中"}}));
    EXPECT_EQ(countOf("clearAttributes /k7/List.ini"), 0);
}

TEST_F(ReceiverCopiesTest, AFileThatCannotBeCopiedOrConvertedLeavesTheGridsSilently) {
    for (const std::u16string_view fault : {u"/disk/List.ini", u"/disk/User.ini", u"/k7/LIST.K7N", u"/k7/USER.K7N"}) {
        files.failing = {std::u16string(fault)};
        receiver.ReloadFromReceiver();
        EXPECT_TRUE(gridsAreUntouched()) << narrow(fault);
    }
}

TEST_F(ReceiverCopiesTest, AReloadReplacesBothWorkingCopiesOrNeither) {
    for (const std::u16string_view fault :
         {u"/disk/List.ini", u"/disk/User.ini", u"/k7/List.ini", u"/k7/User.ini", u"/k7/LIST.K7N", u"/k7/USER.K7N"}) {
        files.failing = {std::u16string(fault)};
        receiver.ReloadFromReceiver();
        EXPECT_EQ(listFile(), "old list") << narrow(fault);
        EXPECT_EQ(userFile(), "old user") << narrow(fault);
    }
}

TEST_F(ReceiverCopiesTest, SaveCopiesTheSavedListsToTheReceiver) {
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/disk/List.ini"], listFile());
    EXPECT_EQ(files.files[u"/disk/User.ini"], userFile());
    EXPECT_NE(listFile().find("Programme=shown"), std::string::npos);
    EXPECT_NE(userFile().find("[kvt update end]"), std::string::npos);
    EXPECT_TRUE(noTemporaryFileIsLeft());
}

TEST_F(ReceiverCopiesTest, SaveWithoutDiskStillSavesTheWorkingCopies) {
    volumes.volumes.clear();
    box.expect({u"Can't find disk,please connect DRM receiver to PC"});
    receiver.SaveToReceiver();
    EXPECT_NE(listFile().find("Programme=shown"), std::string::npos);
    EXPECT_EQ(files.files[u"/disk/List.ini"], kList);
}

TEST_F(ReceiverCopiesTest, SaveWorksOnADiskWithoutFiles) {
    files.files.erase(u"/disk/List.ini");
    files.files.erase(u"/disk/User.ini");
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/disk/List.ini"], listFile());
    EXPECT_EQ(files.files[u"/disk/User.ini"], userFile());
}

TEST_F(ReceiverCopiesTest, AFailedCopyOfEitherFileKeepsBothFilesOfTheReceiver) {
    for (const std::u16string_view fault :
         {u"/disk/List.ini", u"/disk/User.ini", u"/disk/LIST.K7N", u"/disk/USER.K7N"}) {
        files.readOnly = {std::u16string(fault)};
        receiver.SaveToReceiver();
        EXPECT_EQ(files.files[u"/disk/List.ini"], kList) << narrow(fault);
        EXPECT_EQ(files.files[u"/disk/User.ini"], kUser) << narrow(fault);
        EXPECT_TRUE(noTemporaryFileIsLeft()) << narrow(fault);
    }
    files.readOnly.clear();
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/disk/List.ini"], listFile());
    EXPECT_EQ(files.files[u"/disk/User.ini"], userFile());
}

TEST_F(ReceiverCopiesTest, SavingKeepsTheReceiversOldFiles) {
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], kList);
    EXPECT_EQ(files.files[u"/k7/Backup/User-20261120T224501Z.ini"], kUser);
}

TEST_F(ReceiverCopiesTest, LoadingKeepsTheWorkingCopiesAndTheListsShown) {
    listFile() = utf16File(u"\u4E2D");
    receiver.ReloadFromReceiver();
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], "\xE4\xB8\xAD") << "in the receiver's encoding";
    EXPECT_NE(files.files[u"/k7/Backup/List-20261120T224501Z-2.ini"].find("Programme=shown"), std::string::npos);
    EXPECT_EQ(files.files[u"/k7/Backup/User-20261120T224501Z.ini"], "old user");
}

TEST_F(ReceiverCopiesTest, AFailedBackupStopsNothing) {
    files.failing = {u"/k7/Backup"};
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/disk/List.ini"], listFile());
    EXPECT_EQ(files.files[u"/disk/User.ini"], userFile());
}

TEST_F(ReceiverCopiesTest, AFailedSaveCopiesNothingToTheReceiver) {
    receiver.ReloadFromReceiver();
    files.failing = {u"/k7/USER.K7N"};
    receiver.SaveToReceiver();
    EXPECT_EQ(files.files[u"/disk/List.ini"], kList);
    EXPECT_EQ(files.files[u"/disk/User.ini"], kUser) << "the working copy is in UTF-16 still";
}
