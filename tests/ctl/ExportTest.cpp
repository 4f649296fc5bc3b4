#include "ctl/CtlFixture.h"

namespace {

class ExportTest : public CtlTest {};

const std::string kCsv =
    "list,programme,frequency_khz,start_utc,stop_utc,target,system\r\n"
    "drm,Aurora,6095,07:00,16:00,Europe,\r\n"
    "drm,青空,11955,23:00,24:00,Asia,\r\n"
    "am,Long,198,,,,\r\n"
    "am,Short,6070,,,,\r\n"
    "fm,City,98500,,,,\r\n"
    "fav,Aurora,6095,,,,DRM\r\n"
    "fav,City,98500,,,,FM\r\n";

}  // namespace

TEST_F(ExportTest, CsvHasFrequenciesInKilohertz) {
    EXPECT_EQ(run({"export"}), 0);
    EXPECT_EQ(out, kCsv);
}

TEST_F(ExportTest, AFileIsReplacedAtomically) {
    files.files[u"/home/lists.csv"] = "old";
    EXPECT_EQ(run({"export", "-o", "lists.csv"}), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(files.files[u"/home/lists.csv"], kCsv);
    files.failing = {u"/home/LISTS.K7N"};
    files.files[u"/home/lists.csv"] = "old";
    EXPECT_EQ(run({"export", "-o", "lists.csv"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /home/lists.csv: cannot be written\n");
    EXPECT_EQ(files.files[u"/home/lists.csv"], "old");
}

TEST_F(ExportTest, AFinishedFileSurvivesAPowerCut) {
    files.files[u"/home/lists.csv"] = "old";
    EXPECT_EQ(run({"export", "-o", "lists.csv"}), 0);
    files.cutPower([](std::u16string_view) { return FakeFiles::Fate::Empty; });
    EXPECT_EQ(files.files[u"/home/lists.csv"], kCsv);
}

TEST_F(ExportTest, CellsAreQuotedIfNecessary) {
    files.files[u"/k7/List.ini"] =
        "[Total]\nfmnumber=2\n[FMSchedule0]\nProgramme=a,\"b\";c\nFrequency=98500\n"
        "[FMSchedule1]\nProgramme=a\tb\nFrequency=87550\n";
    files.files.erase(u"/k7/User.ini");
    run({"export"});
    EXPECT_EQ(out.substr(out.find('\n') + 1), "fm,\"a,\"\"b\"\";c\",98500,,,,\r\nfm,\"a\tb\",87550,,,,\r\n");
}

TEST_F(ExportTest, JsonHoldsAllFourLists) {
    EXPECT_EQ(run({"export", "--format", "json"}), 0);
    for (const std::string part : {R"("drm": [)", R"("am": [)", R"("fm": [)", R"("fav": [)", R"("system": "FM")",
                                   R"("band": "LW")", R"("frequency_khz": 98500)"}) {
        EXPECT_NE(out.find(part), out.npos) << part;
    }
}

TEST_F(ExportTest, IniWritesTheTwoFilesAsTheWindowDoes) {
    EXPECT_EQ(run({"export", "--format", "ini"}), 2);
    EXPECT_EQ(run({"export", "--format", "ini", "-o", "copy"}), 0);
    EXPECT_NE(files.files[u"/home/copy/List.ini"].find("[DRMSchedule1]\r\nFrequency=11955\r\n"), std::string::npos);
    EXPECT_NE(files.files[u"/home/copy/User.ini"].find("major=3\r\n"), std::string::npos);
    EXPECT_EQ(run({"diff", "/k7/List.ini", "copy/List.ini"}), 0);
    EXPECT_EQ(run({"diff", "/k7/User.ini", "copy/User.ini"}), 0);
}

TEST_F(ExportTest, GqrxBookmarksAreInHertz) {
    EXPECT_EQ(run({"export", "--format", "gqrx"}), 0);
    EXPECT_NE(out.find("    98500000; City                     ; WFM (stereo)        ;     160000; FM\n"), out.npos)
        << out;
    EXPECT_NE(out.find("     6095000; Aurora                   ; Raw I/Q             ;      10000; DRM\n"), out.npos);
}

TEST_F(ExportTest, AnUnknownFormatIsRejected) { EXPECT_EQ(run({"export", "--format", "xml"}), 2); }
