#include "ctl/CtlFixture.h"

namespace {

class BackupsTest : public CtlTest {
protected:
    void SetUp() override {
        CtlTest::SetUp();
        files.folders.insert(u"/k7/Backup");
        files.files[u"/k7/Backup/List-20260101T000000Z.ini"] = "[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=then\n";
        files.files[u"/k7/Backup/List-20260101T000000Z-10.ini"] = "[Total]\n";
        files.files[u"/k7/Backup/List-20260101T000000Z-2.ini"] = "[Total]\n";
        files.files[u"/k7/Backup/User-20260101T000000Z.ini"] = kCtlUser;
    }
};

}  // namespace

TEST_F(BackupsTest, StampsAreListedFromTheOldest) {
    EXPECT_EQ(run({"backup", "list"}), 0);
    EXPECT_EQ(out,
              "Stamp                List.ini   User.ini\n"
              "20260101T000000Z     48 bytes  180 bytes\n"
              "20260101T000000Z-2    8 bytes          -\n"
              "20260101T000000Z-10   8 bytes          -\n");
    EXPECT_EQ(run({"backup", "list", "--json"}), 0);
    EXPECT_TRUE(out.starts_with(
        "[\n  {\n    \"stamp\": \"20260101T000000Z\",\n    \"list_bytes\": 48,\n    \"user_bytes\": 180\n  },\n"))
        << out;
}

TEST_F(BackupsTest, ThePartOfADamagedFileIsNoBackup) {
    files.files = {{u"/k7/Backup/List.part-20260101T000000Z.ini", "[DRMSchedule0]\n"}};
    EXPECT_EQ(run({"backup", "list"}), 1);
    EXPECT_EQ(run({"backup", "show", "20260101T000000Z"}), 3);
}

TEST_F(BackupsTest, WithoutBackupsNothingIsFound) {
    files.files.clear();
    files.folders.clear();
    EXPECT_EQ(run({"backup", "list"}), 1);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/Backup: there are no backups\n");
}

TEST_F(BackupsTest, ABackupIsShown) {
    EXPECT_EQ(run({"backup", "show", "20260101T000000Z-2"}), 0);
    EXPECT_EQ(out, "DRM List: 0\n\nAM List: 0\n\nFM List: 0\n");
    EXPECT_EQ(run({"backup", "show", "20260101T000001Z"}), 3);
    EXPECT_EQ(run({"backup", "show"}), 2);
    EXPECT_EQ(run({"diff", "backup:20260101T000000Z", "backup:20260101T000000Z-2"}), 1);
}

TEST_F(BackupsTest, ARestoreBacksUpWhatItReplaces) {
    EXPECT_EQ(run({"backup", "restore", "20260101T000000Z-2"}), 0);
    EXPECT_EQ(out, "DRM: 2 -> 0 records\nAM: 2 -> 0 records\nFM: 1 -> 0 records\nFavourite: 2 -> 2 records\n");
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], kCtlList);
    EXPECT_EQ(run({"backup", "restore", "20261120T224501Z"}), 0);
    EXPECT_EQ(run({"diff", "/k7/List.ini", "/k7/Backup/List-20261120T224501Z.ini"}), 0);
}

TEST_F(BackupsTest, ARestoreHasADryRunAndRespectsTheWindow) {
    EXPECT_EQ(run({"--dry-run", "backup", "restore", "20260101T000000Z-2"}), 1);
    EXPECT_NE(out.find("- AM 1: Long | 198\n"), out.npos);
    singleInstance.running = true;
    EXPECT_EQ(run({"backup", "restore", "20260101T000000Z-2"}), 5);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
    singleInstance.running = false;
    EXPECT_EQ(run({"backup", "restore", "20990101T000000Z"}), 3);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
}

TEST_F(BackupsTest, AnEmptyStampIsNoBackup) {
    for (const char* const command : {"show", "restore"}) {
        EXPECT_EQ(run({"backup", command, ""}), 3);
        EXPECT_EQ(errors, "halcyon_k7ctl: /k7/Backup: no backup \n");
        EXPECT_EQ(out, "");
    }
}
