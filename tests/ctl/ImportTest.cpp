#include "ctl/CtlFixture.h"

namespace {

class ImportTest : public CtlTest {
protected:
    int import(const std::string& csv, std::vector<std::string> more = {}) {
        files.files[u"/home/in.csv"] = csv;
        more.insert(more.begin(), {"import", "in.csv"});
        return run(more);
    }
    std::string exported() {
        const std::string keptErrors = errors;
        EXPECT_EQ(run({"export"}), 0);
        return out;
    }
    void expectUntouched() {
        EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
        EXPECT_EQ(files.files[u"/k7/User.ini"], kCtlUser);
        EXPECT_EQ(files.files.count(u"/k7/Backup/List-20261120T224501Z.ini"), 0U);
    }
};

const std::string kOne = "list,programme,frequency_khz\r\nam,New,999\r\n";

}  // namespace

TEST_F(ImportTest, RecordsAreAppended) {
    EXPECT_EQ(import(kOne), 0);
    EXPECT_EQ(out, "DRM: 2 -> 2 records\nAM: 2 -> 3 records\nFM: 1 -> 1 records\nFavourite: 2 -> 2 records\n");
    EXPECT_NE(exported().find("am,Short,6070,,,,\r\nam,New,999,,,,\r\nfm,"), std::string::npos);
    EXPECT_EQ(files.files[u"/k7/Backup/List-20261120T224501Z.ini"], kCtlList);
    EXPECT_EQ(files.files[u"/k7/Backup/User-20261120T224501Z.ini"], kCtlUser);
    EXPECT_EQ(run({"show"}), 0);
}

TEST_F(ImportTest, AnExportImportsAsTheSameLists) {
    const std::string before = exported();
    ASSERT_EQ(import(before, {"--replace"}), 0);
    EXPECT_EQ(exported(), before);
    EXPECT_NE(files.files[u"/k7/User.ini"].find("major=3"), std::string::npos) << "the settings are kept";
    ASSERT_EQ(import("list,programme,frequency_khz\n", {"--replace"}), 0);
    EXPECT_EQ(exported().find("Aurora"), std::string::npos) << "all four lists are replaced";
}

TEST_F(ImportTest, OneListCanBeImported) {
    EXPECT_EQ(import(kOne + "fm,Other,98000\r\n", {"--list", "fm", "--replace"}), 0);
    EXPECT_EQ(out, "DRM: 2 -> 2 records\nAM: 2 -> 2 records\nFM: 1 -> 1 records\nFavourite: 2 -> 2 records\n");
    EXPECT_NE(exported().find("fm,Other,98000"), std::string::npos);
    EXPECT_EQ(import("programme;frequency_khz\nOnly;87500\n", {"--list", "fm"}), 0);
    EXPECT_NE(exported().find("fm,Only,87500"), std::string::npos);
}

TEST_F(ImportTest, ColumnsComeInAnyOrderWithAnySeparatorAndMark) {
    EXPECT_EQ(import("\xEF\xBB\xBFsystem\tfrequency_khz\tPROGRAMME\tlist\nAM\t999\tX\tfav\n"), 0);
    EXPECT_NE(exported().find("fav,X,999,,,,AM"), std::string::npos);
    EXPECT_EQ(import("list;programme;frequency_khz;start_utc;stop_utc;target\n"
                     "drm;\"a;\"\"b\"\"\";5000;00:00;24:00;\"World\"\n"),
              0);
    EXPECT_NE(exported().find("drm,\"a;\"\"b\"\"\",5000,00:00,24:00,World"), std::string::npos);
}

TEST_F(ImportTest, AnUnknownColumnIsIgnoredWithAWarning) {
    EXPECT_EQ(import("list,note,programme,frequency_khz\nam,n,X,999\n"), 0);
    EXPECT_EQ(errors, "halcyon_k7ctl: warning: /home/in.csv: the column \"note\" is unknown and left out\n");
}

TEST_F(ImportTest, EveryFaultIsNamedAndNothingIsChanged) {
    EXPECT_EQ(import("list,programme,frequency_khz,start_utc,stop_utc,target,system\n"
                     "xm,A,999,,,,\n"
                     "am,,400,,,,\n"
                     "drm,\"A\nB\",5000,10:00,09:00,,\n"
                     "fm,A,98500,,\n"
                     "fav,A,98500,,,,XY\n"
                     "fm,A,120000,,,,\n"
                     "fm,\"A\"x,98500,,,,\n"),
              1);
    EXPECT_EQ(errors,
              "halcyon_k7ctl: /home/in.csv:2: list is none of drm, am, fm and fav\n"
              "halcyon_k7ctl: /home/in.csv:3: programme Input can't be empty\n"
              "halcyon_k7ctl: /home/in.csv:3: frequency_khz Out of range: "
              "LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!\n"
              "halcyon_k7ctl: /home/in.csv:4: programme cannot be stored: it has a line break, blanks or quotes around "
              "it, or too many characters\n"
              "halcyon_k7ctl: /home/in.csv:4: start_utc and stop_utc are no times hh:mm of which the first is the "
              "earlier one\n"
              "halcyon_k7ctl: /home/in.csv:4: target Input can't be empty\n"
              "halcyon_k7ctl: /home/in.csv:6: has 5 cells, the first line has 7\n"
              "halcyon_k7ctl: /home/in.csv:7: system is none of DRM, AM and FM\n"
              "halcyon_k7ctl: /home/in.csv:8: frequency_khz Out of range: (87.0-108.0) MHz!\n"
              "halcyon_k7ctl: /home/in.csv:9: a quote within a cell that is not quoted as a whole\n"
              "halcyon_k7ctl: nothing has been changed\n");
    expectUntouched();
}

TEST_F(ImportTest, TwentyFaultsAreListed) {
    std::string csv = "list,programme,frequency_khz\n";
    for (int i = 0; i < 25; ++i) {
        csv += "am,A,1\n";
    }
    EXPECT_EQ(import(csv), 1);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 22);
    EXPECT_NE(errors.find("and 5 more faults\n"), errors.npos);
}

TEST_F(ImportTest, MissingColumnsAreNamed) {
    EXPECT_EQ(import("programme,programme\n"), 1);
    EXPECT_EQ(errors,
              "halcyon_k7ctl: /home/in.csv:1: programme is in the first line twice\n"
              "halcyon_k7ctl: /home/in.csv:1: frequency_khz is missing from the first line\n"
              "halcyon_k7ctl: /home/in.csv:1: list is missing from the first line\n"
              "halcyon_k7ctl: nothing has been changed\n");
    EXPECT_EQ(import(""), 1);
    EXPECT_EQ(import("list,programme,\"frequency_khz\n"), 1);
}

TEST_F(ImportTest, AListIsLimitedTo256Records) {
    std::string csv = "list,programme,frequency_khz\n";
    for (int i = 0; i < 255; ++i) {
        csv += "am,A,999\n";
    }
    EXPECT_EQ(import(csv), 1);
    EXPECT_EQ(errors, "halcyon_k7ctl: AM: 257 records. Max number of each list is 256! Nothing has been changed\n");
    expectUntouched();
    EXPECT_EQ(import(csv, {"--replace"}), 0);
}

TEST_F(ImportTest, ADryRunPrintsTheDifferencesAndChangesNothing) {
    singleInstance.running = true;
    EXPECT_EQ(import(kOne, {"--dry-run"}), 1);
    EXPECT_EQ(out, "+ AM 3: New | 999\n");
    expectUntouched();
}

TEST_F(ImportTest, AnOpenWindowIsNotDisturbed) {
    singleInstance.running = true;
    EXPECT_EQ(import(kOne), 5);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/: the window is open on these lists; close it first\n");
    expectUntouched();
}

TEST_F(ImportTest, AnUnreadableOrUnwritableFileIsNamed) {
    EXPECT_EQ(run({"import", "nowhere.csv"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /home/nowhere.csv: no such file\n");
    EXPECT_EQ(import("list\xE4"), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /home/in.csv: is not UTF-8\n");
    files.unreadable = {u"/k7/User.ini"};
    EXPECT_EQ(import(kOne), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/: the working copies cannot be read\n");
    files.unreadable = {};
    files.readOnly = {u"/k7/USER.K7N"};
    EXPECT_EQ(import(kOne), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/: the lists cannot be written\n");
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
    EXPECT_EQ(files.files[u"/k7/User.ini"], kCtlUser);
    EXPECT_EQ(run({"show"}), 0);
    files.readOnly = {u"/k7/Recovery/Snapshot1", u"/k7/Recovery/Snapshot2"};
    EXPECT_EQ(import(kOne), 3);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
}

TEST_F(ImportTest, StandardInputCanBeImported) {
    console.input = kOne;
    EXPECT_EQ(run({"import", "-"}), 0);
    console.input = std::nullopt;
    EXPECT_EQ(run({"import", "-"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: standard input: cannot be read\n");
}

TEST_F(ImportTest, RecordsAreAppendedToTheListsOfAnInterruptedRun) {
    leaveSnapshot("[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=kept\nFrequency=98500\n", kCtlUser);
    EXPECT_EQ(import(kOne), 0);
    EXPECT_EQ(run({"show"}), 0);
    EXPECT_NE(exported().find("fm,kept"), std::string::npos);
    EXPECT_NE(exported().find("am,New"), std::string::npos);
}

TEST_F(ImportTest, MissingWorkingCopiesAreCreatedByAnImport) {
    files.files.clear();
    EXPECT_EQ(import(kOne), 0);
    EXPECT_NE(files.files[u"/k7/List.ini"].find("amnumber=1"), std::string::npos);
    EXPECT_NE(files.files[u"/k7/User.ini"].find("favnumber=0"), std::string::npos);
}
