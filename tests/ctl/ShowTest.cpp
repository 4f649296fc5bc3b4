#include "ctl/CtlFixture.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"

namespace {

class ShowTest : public CtlTest {};

std::string utf16File(std::string_view utf8) {
    std::string bytes = "\xFF\xFE";
    appendBytes(bytes, fromUtf8(utf8), ByteOrder::Little);
    return bytes;
}

}  // namespace

TEST_F(ShowTest, TheListsAreTablesWithTheCaptionsOfTheWindow) {
    EXPECT_EQ(run({"show"}), 0);
    EXPECT_EQ(out,
              "DRM List: 2\n"
              "Row  Programme  Frequency(kHz)  Time(UTC)    Target\n"
              "  1  Aurora               6095  07:00-16:00  Europe\n"
              "  2  青空                11955  23:00-24:00  Asia\n"
              "\n"
              "AM List: 2\n"
              "Row  Programme  Frequency(kHz)  Band\n"
              "  1  Long                  198  LW\n"
              "  2  Short                6070  SW\n"
              "\n"
              "FM List: 1\n"
              "Row  Programme  Frequency(MHz)  Band\n"
              "  1  City                 98.5  VHF\n"
              "\n"
              "Favourite: 2\n"
              "Row  Programme  Frequency  System\n"
              "  1  Aurora     6095  kHz  DRM\n"
              "  2  City       98.5  MHz  FM\n");
    EXPECT_EQ(errors, "");
}

TEST_F(ShowTest, OneListAndASourceCanBeNamed) {
    files.files[u"/home/copy/List.ini"] = "[Total]\namnumber=1\n[AMSchedule0]\nProgramme=X\nFrequency=999\n";
    files.folders.insert(u"/home/copy");
    EXPECT_EQ(run({"show", "am", "copy"}), 0);
    EXPECT_EQ(out, "AM List: 1\nRow  Programme  Frequency(kHz)  Band\n  1  X                     999  MW\n");
    EXPECT_EQ(run({"show", "copy/List.ini"}), 0);
    EXPECT_EQ(out.substr(0, out.find('\n')), "DRM List: 0");
    EXPECT_EQ(out.find("Favourite"), out.npos) << "List.ini has no favourites";
    EXPECT_EQ(run({"show", "long", "copy"}), 2);
}

TEST_F(ShowTest, AFileWithAnotherNameIsRecognisedByItsCount) {
    files.files[u"/home/f.txt"] = kCtlUser;
    EXPECT_EQ(run({"show", "f.txt"}), 0);
    EXPECT_EQ(out.substr(0, out.find('\n')), "Favourite: 2");
}

TEST_F(ShowTest, MarksAndUtf16AreRead) {
    run({"show"});
    const std::string plain = out;
    files.files[u"/k7/List.ini"] = "\xEF\xBB\xBF" + kCtlList;
    files.files[u"/k7/User.ini"] = utf16File(kCtlUser);
    run({"show"});
    EXPECT_EQ(out, plain);
}

TEST_F(ShowTest, TheListsOfAnInterruptedRunCountBeforeTheWorkingCopies) {
    leaveSnapshot("[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=kept\n", kCtlUser);
    EXPECT_EQ(run({"show", "fm"}), 0);
    EXPECT_NE(out.find("kept"), out.npos) << out;
    files.files[u"/k7/List.ini"] += ";\n";
    EXPECT_EQ(run({"show", "fm"}), 0);
    EXPECT_NE(out.find("City"), out.npos) << "a working copy that somebody else has changed wins";
    files.files[u"/k7/List.ini"] = "";
    EXPECT_EQ(run({"show", "fm"}), 0);
    EXPECT_NE(out.find("kept"), out.npos) << "one that is damaged does not";
}

TEST_F(ShowTest, ControlCharactersNeitherMoveTheCursorNorEndALine) {
    files.files[u"/k7/List.ini"] = "[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=a\x1B[2J\x07\xC2\x85z\n";
    run({"show", "fm"});
    EXPECT_EQ(out.find('\x1B'), out.npos);
    EXPECT_NE(out.find("a\xEF\xBF\xBD[2J\xEF\xBF\xBD\xEF\xBF\xBDz"), out.npos) << out;
}

TEST_F(ShowTest, JsonHasAnObjectForEachRecord) {
    EXPECT_EQ(run({"show", "drm", "--json"}), 0);
    EXPECT_EQ(out,
              "{\n  \"drm\": [\n    {\n      \"row\": 1,\n      \"programme\": \"Aurora\",\n"
              "      \"frequency_khz\": 6095,\n      \"start_utc\": \"07:00\",\n      \"stop_utc\": \"16:00\",\n"
              "      \"target\": \"Europe\"\n    },\n    {\n      \"row\": 2,\n      \"programme\": \"青空\",\n"
              "      \"frequency_khz\": 11955,\n      \"start_utc\": \"23:00\",\n      \"stop_utc\": \"24:00\",\n"
              "      \"target\": \"Asia\"\n    }\n  ]\n}\n");
}

TEST_F(ShowTest, CaptionsAreBoldOnATerminal) {
    console.isTerminal = true;
    run({"show", "fm"});
    EXPECT_NE(out.find("\x1B[1mRow"), out.npos);
}

TEST_F(ShowTest, AnUnreadableSourceIsNamed) {
    EXPECT_EQ(run({"show", "nowhere"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: nowhere: is none of drm, am, fm and fav, and there is no such file or folder\n");
    files.unreadable = {u"/k7/User.ini"};
    EXPECT_EQ(run({"show"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/User.ini: cannot be read\n");
    EXPECT_EQ(run({"show", "backup:20000101T000000Z"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /k7/Backup: no backup 20000101T000000Z\n");
    EXPECT_EQ(run({"show", "receiver"}), 4);
    EXPECT_EQ(errors, "halcyon_k7ctl: no disk is the receiver's; connect it and try again\n");
    EXPECT_EQ(out, "");
}

TEST_F(ShowTest, OutputThatCannotBeWrittenIsAFault) {
    console.isBroken = true;
    EXPECT_EQ(run({"show"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: standard output: cannot be written\n");
}

TEST_F(ShowTest, NothingIsWritten) {
    const auto before = files.files;
    ASSERT_TRUE(run({"show"}) == 0 && run({"check"}) == 0 && run({"export"}) == 0 && run({"find"}) == 0);
    EXPECT_EQ(files.files, before);
}
