#include "ctl/CtlFixture.h"

namespace {

class CheckTest : public CtlTest {
protected:
    // The output of "check" for a List.ini.
    std::string faultsOf(const std::string& list) {
        files.files[u"/home/List.ini"] = list;
        const int code = run({"check", "List.ini"});
        EXPECT_EQ(code, out.empty() ? 0 : 1);
        return out;
    }
};

}  // namespace

TEST_F(CheckTest, SoundListsHaveNoFaults) {
    EXPECT_EQ(run({"check"}), 0);
    EXPECT_EQ(out, "");
}

TEST_F(CheckTest, EachFaultIsOneLine) {
    EXPECT_EQ(faultsOf("[Total]\ndrmnumber=2\namnumber=1\nfmnumber=1\n"
                       "[DRMSchedule0]\nProgramme=A\nFrequency=31000\nStartStopTimeUTC=10:00-09:00\nTarget=\n"
                       "[DRMSchedule1]\nProgramme=\nFrequency=6x\nStartStopTimeUTC=23:00-24:00\nTarget=E\n"
                       "[AMSchedule0]\nProgramme=B\nFrequency=400\n[FMSchedule0]\nProgramme=C\nFrequency=120000\n"),
              "DRM 1 Frequency(kHz): Out of range: (150--30000) kHz\n"
              "DRM 1 Time(UTC): is not hh:mm-hh:mm with the start before the stop\n"
              "DRM 1 Target: Input can't be empty\n"
              "DRM 2 Programme: Input can't be empty\n"
              "DRM 2 Frequency(kHz): Please input zero to nine\n"
              "AM 1 Frequency(kHz): Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!\n"
              "FM 1 Frequency(MHz): Out of range: (87.0-108.0) MHz!\n");
}

TEST_F(CheckTest, WrongCountsAreReported) {
    EXPECT_EQ(
        faultsOf("[Total]\namnumber=2\nfmnumber=9x\n[AMSchedule1]\nProgramme=B\nFrequency=999\n"
                 "[DRMSchedule0]\n[DRMSchedule1]\n"),
        "DRM drmnumber: is missing, but sections follow up to DRMSchedule1\n"
        "AM 1 amnumber: says 2, but there is no section AMSchedule0\n"
        "FM fmnumber: \"9x\" is no count from 0 to 32767\n" +
            [] {
                std::string missing;
                for (int i = 0; i < 9; ++i) {
                    missing += "FM " + std::to_string(i + 1) + " fmnumber: says 9, but there is no section FMSchedule" +
                               std::to_string(i) + "\n";
                }
                return missing;
            }() +
            "AM 1 Programme: Input can't be empty\nAM 1 Frequency(kHz): Input can't be empty\n" +
            [] {
                std::string empty;
                for (int i = 1; i <= 9; ++i) {
                    empty += "FM " + std::to_string(i) + " Programme: Input can't be empty\nFM " + std::to_string(i) +
                             " Frequency(MHz): Out of range: (87.0-108.0) MHz!\n";
                }
                for (int i = 2; i <= 9; ++i) {
                    empty += "FM " + std::to_string(i) + " record: the same as row 1\n";
                }
                return empty;
            }());
}

TEST_F(CheckTest, ACountOutside16BitsIsReported) {
    EXPECT_EQ(faultsOf("[Total]\ndrmnumber=70000\n"), "DRM drmnumber: \"70000\" is no count from 0 to 32767\n");
}

TEST_F(CheckTest, DuplicatesAndTooManyRecordsAreReported) {
    std::string list = "[Total]\namnumber=257\n";
    for (int i = 0; i < 257; ++i) {
        list += "[AMSchedule" + std::to_string(i) + "]\nFrequency=" + std::to_string(600 + i % 256) + "\nProgramme=P\n";
    }
    EXPECT_EQ(faultsOf(list),
              "AM 257 count: over the 256 records of a list, which holds 257\nAM 257 record: the same as row 1\n");
}

TEST_F(CheckTest, FavouritesHaveTheLimitsOfTheirSystem) {
    files.files[u"/home/User.ini"] =
        "[Total]\nfavnumber=3\n[FAVSchedule0]\nProgramme=A\nFrequency=400\nTYPE=AM\n"
        "[FAVSchedule1]\nProgramme=B\nFrequency=400\nTYPE=DRM\n[FAVSchedule2]\nProgramme=C\nFrequency=1\nTYPE=XY\n";
    EXPECT_EQ(run({"check", "User.ini"}), 1);
    EXPECT_EQ(out,
              "Favourite 1 Frequency: Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!\n"
              "Favourite 3 System: is none of DRM, AM and FM\n");
}

TEST_F(CheckTest, InvalidUtf8IsReported) {
    EXPECT_EQ(faultsOf("[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=\xE4\nFrequency=98500\n"),
              "/home/List.ini: is not all UTF-8\n");
}

TEST_F(CheckTest, ANulBeforeTheEndMarkIsNoFault) {
    EXPECT_EQ(faultsOf("[Total]\r\nfmnumber=0\r\n" + std::string(1, '\0') + "\r\n[kvt update end]\r\n"), "");
}

TEST_F(CheckTest, JsonHasAnObjectForEachFault) {
    files.files[u"/home/List.ini"] = "[Total]\nfmnumber=1\n[FMSchedule0]\nProgramme=C\nFrequency=120000\n";
    EXPECT_EQ(run({"check", "--json", "List.ini"}), 1);
    EXPECT_EQ(out,
              "[\n  {\n    \"list\": \"fm\",\n    \"row\": 1,\n    \"field\": \"Frequency(MHz)\",\n"
              "    \"fault\": \"Out of range: (87.0-108.0) MHz!\"\n  }\n]\n");
}
