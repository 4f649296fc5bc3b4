#include "ctl/CtlFixture.h"

namespace {

// The nine lines of a record.
std::string record(const std::string& time, const std::string& frequency, const std::string& programme) {
    return "StartStopTimeUTC=" + time + "\nDays=1\nFrequency=" + frequency +
           "\nTarget=Europe\nPower=1\nProgramme=" + programme + "\nLanguage=E\nSite=S\nCountry=C\n";
}

class ScheduleTest : public CtlTest {
protected:
    void SetUp() override {
        CtlTest::SetUp();
        files.files[u"/home/nine.txt"] =
            "[DRMSchedule]\n" + record("0700-1600", "6095", "Aurora") + record("2300-0100", "7000", "Across") +
            record("0600-0700", "5000", "Long name 1") + record("0600-0700", "5000", "Long name 1");
        files.files[u"/home/sked.csv"] =
            "kHz:75;Time(UTC):93;Days:59;ITU:49;Station:201;Lng:49;Target:62;Remarks:135;P:35;Start:60;Stop:60;\r\n"
            "5875;2200-0100;1;D;Radio DRM;D;Eu;x;1;;\r\n"
            "6000.4;0600-0700;Mo-Fr;D;Caf\xE9 \x80;D;Af;x;1;;\r\n"
            "7000;0600-0700;;D;Off;D;Af;x;8;;\r\n"
            "8000;0600-0700;;D;Summer;D;Af;x;6;0104;3110\r\n"
            "9000;0600-0700;;D;Winter DRM;D;;x;6;0111;3003\r\n"
            "rubbish\r\n";
        files.files[u"/home/A26.txt"] = "; comment\n" + hfcc("06055", "2200", "2300", "27,28", "1234567", "N", "BBC") +
                                        hfcc("06100", "0000", "2400", "", "1", "D", "XYZ");
        files.files[u"/home/broadcas.txt"] = "BBC British Broadcasting\n";
    }
    static std::string hfcc(const std::string& kHz, const std::string& start, const std::string& stop,
                            const std::string& zones, const std::string& days, const std::string& modulation,
                            const std::string& broadcaster) {
        std::string line(121, ' ');
        line.replace(0, kHz.size(), kHz);
        line.replace(6, 4, start);
        line.replace(11, 4, stop);
        line.replace(16, zones.size(), zones);
        line.replace(72, days.size(), days);
        line.replace(80, 6, "251026");
        line.replace(87, 6, "280327");
        line.replace(94, 1, modulation);
        line.replace(117, 3, broadcaster);
        return line + "\r\n";
    }
    // The records of the DRM list.
    std::string drm() {
        std::string rows;
        EXPECT_EQ(run({"export"}), 0);
        std::string_view rest = out;
        while (rest.find("drm,") != rest.npos) {
            rest.remove_prefix(rest.find("drm,") + 4);
            rows += std::string(rest.substr(0, rest.find(",\r\n"))) + "\n";
        }
        return rows;
    }
};

}  // namespace

TEST_F(ScheduleTest, TheNineLineFormReplacesTheListAsASyncDoes) {
    EXPECT_EQ(run({"schedule", "replace", "nine.txt"}), 0);
    EXPECT_EQ(errors, "halcyon_k7ctl: warning: 2 programmes have more than 10 characters, such as \"Long name 1\"\n");
    EXPECT_EQ(out.substr(0, out.find('\n')), "DRM: 2 -> 3 records");
    EXPECT_EQ(drm(),
              "Aurora,6095,07:00,16:00,Europe\nLong name 1,5000,06:00,07:00,Europe\n"
              "Long name 1,5000,06:00,07:00,Europe\n");
}

TEST_F(ScheduleTest, AMergeAddsMissingRecordsOnly) {
    EXPECT_EQ(run({"schedule", "merge", "nine.txt", "--dry-run"}), 1);
    EXPECT_EQ(out, "+ DRM 3: Long name 1 | 5000 | 06:00-07:00 | Europe\n");
    EXPECT_EQ(run({"schedule", "merge", "nine.txt"}), 0);
    EXPECT_EQ(drm(),
              "Aurora,6095,07:00,16:00,Europe\n青空,11955,23:00,24:00,Asia\nLong name 1,5000,06:00,07:00,Europe\n");
    EXPECT_EQ(run({"schedule", "merge", "nine.txt"}), 0);
    EXPECT_EQ(out.substr(0, out.find('\n')), "DRM: 3 -> 3 records");
}

TEST_F(ScheduleTest, EibiEntriesInSeasonAreRead) {
    EXPECT_EQ(run({"schedule", "replace", "sked.csv"}), 0);
    EXPECT_EQ(errors, "halcyon_k7ctl: warning: 1 lines are no broadcasts and are left out\n");
    EXPECT_EQ(drm(),
              "Radio DRM,5875,22:00,24:00,Eu\nRadio DRM,5875,00:00,01:00,Eu\nCafé €,6000,06:00,07:00,Af\n"
              "Winter DRM,9000,06:00,07:00,-\n");
}

TEST_F(ScheduleTest, EntriesAreSelected) {
    EXPECT_EQ(run({"schedule", "replace", "sked.csv", "--drm-only"}), 0);
    EXPECT_EQ(drm(), "Radio DRM,5875,22:00,24:00,Eu\nRadio DRM,5875,00:00,01:00,Eu\nWinter DRM,9000,06:00,07:00,-\n");
    EXPECT_EQ(run({"schedule", "replace", "sked.csv", "--day", "tu"}), 0);
    EXPECT_EQ(drm(), "Radio DRM,5875,00:00,01:00,Eu\nCafé €,6000,06:00,07:00,Af\nWinter DRM,9000,06:00,07:00,-\n")
        << "what begins on Monday evening is on the air early on Tuesday";
    EXPECT_EQ(run({"schedule", "replace", "sked.csv", "--target", "eU"}), 0);
    EXPECT_EQ(drm(), "Radio DRM,5875,22:00,24:00,Eu\nRadio DRM,5875,00:00,01:00,Eu\n");
    EXPECT_EQ(run({"schedule", "replace", "sked.csv", "--first", "1"}), 0);
    EXPECT_EQ(drm(), "Radio DRM,5875,22:00,24:00,Eu\n");
}

TEST_F(ScheduleTest, HfccBroadcastsHaveTheNamesOfTheirBroadcasters) {
    EXPECT_EQ(run({"schedule", "replace", "A26.txt"}), 0);
    EXPECT_EQ(drm(), "British Broadcasting,6055,22:00,23:00,\"27,28\"\nXYZ,6100,00:00,24:00,-\n");
    EXPECT_EQ(run({"schedule", "replace", "A26.txt", "--drm-only"}), 0);
    EXPECT_EQ(drm(), "British Broadcasting,6055,22:00,23:00,\"27,28\"\n");
    EXPECT_EQ(run({"schedule", "replace", "A26.txt", "--day", "su", "--format", "hfcc"}), 0);
    EXPECT_EQ(drm(), "British Broadcasting,6055,22:00,23:00,\"27,28\"\nXYZ,6100,00:00,24:00,-\n");
    EXPECT_EQ(run({"schedule", "show", "A26.txt", "--day", "mo"}), 0);
    EXPECT_EQ(out.find("XYZ"), out.npos);
    clock.time = {2027, 4, 1, 0, 0, 0};
    EXPECT_EQ(run({"schedule", "show", "A26.txt"}), 1);
    EXPECT_EQ(errors, "halcyon_k7ctl: nothing found\n");
}

TEST_F(ScheduleTest, AScheduleIsShown) {
    EXPECT_EQ(run({"schedule", "show", "sked.csv", "--drm-only", "--target", "Eu"}), 0);
    EXPECT_EQ(out,
              "Row  Programme  Frequency(kHz)  Time(UTC)    Target\n"
              "  1  Radio DRM            5875  22:00-24:00  Eu\n"
              "  2  Radio DRM            5875  00:00-01:00  Eu\n");
    EXPECT_EQ(run({"schedule", "show", "sked.csv", "--target", "nowhere", "--json"}), 1);
    EXPECT_EQ(out, "[]\n");
    console.input = files.files[u"/home/sked.csv"];
    EXPECT_EQ(run({"schedule", "show", "-", "--first", "2"}), 0);
}

TEST_F(ScheduleTest, TheProgressOfADownloadIsOneLineOfATerminal) {
    const std::vector<std::string> words = {"schedule", "show", "http://example.org/sked.csv", "--first", "1"};
    httpClient.answer.body = files.files[u"/home/sked.csv"];
    httpClient.during = [this] {
        progress.update({0, 40});
        progress.update({10, 40});
        progress.update({10, 40});
        progress.update({40, 40});
    };
    EXPECT_EQ(run(words), 0);
    EXPECT_EQ(errors.find("Downloading"), errors.npos);
    console.isTerminal = true;
    EXPECT_EQ(run(words), 0);
    EXPECT_TRUE(errors.starts_with("Downloading...\rDownloading... 10 of 40 bytes\rDownloading... 40 of 40 bytes\n"))
        << errors;
    // A response of unknown length after another one, whose line was longer.
    httpClient.during = [this] {
        progress.update({10, 40});
        progress.update({7, std::nullopt});
    };
    httpClient.answer.status = 404;
    EXPECT_EQ(run(words), 6);
    EXPECT_EQ(errors,
              "Downloading...\rDownloading... 10 of 40 bytes\rDownloading... 7 bytes       \n"
              "halcyon_k7ctl: http://example.org/sked.csv: the download failed: "
              "the server answers with status 404\n");
}

TEST_F(ScheduleTest, AnAddressIsDownloaded) {
    httpClient.answer.body = files.files[u"/home/sked.csv"];
    EXPECT_EQ(run({"schedule", "show", "http://example.org/sked.csv", "--first", "1"}), 0);
    EXPECT_EQ(httpClient.urls, std::vector<std::u16string>{u"http://example.org/sked.csv"});
    EXPECT_NE(out.find("Radio DRM"), out.npos);
    EXPECT_EQ(errors.find("Downloading"), errors.npos);
    httpClient.answer.status = 404;
    EXPECT_EQ(run({"schedule", "replace", "https://example.org/gone"}), 6);
    EXPECT_EQ(errors,
              "halcyon_k7ctl: https://example.org/gone: the download failed: the server answers with status 404\n");
    httpClient.answer = {};
    EXPECT_EQ(run({"schedule", "replace", "https://example.org/gone"}), 6);
    EXPECT_EQ(errors, "halcyon_k7ctl: https://example.org/gone: the download failed\n") << "for an unknown reason";
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
}

TEST_F(ScheduleTest, MoreThan256RecordsAreRejected) {
    std::string schedule = "[DRMSchedule]\n";
    for (int i = 0; i < 300; ++i) {
        schedule += record("0600-0700", std::to_string(5000 + i), "P");
    }
    files.files[u"/home/many.txt"] = schedule;
    EXPECT_EQ(run({"schedule", "replace", "many.txt"}), 1);
    EXPECT_NE(errors.find("Max number of each list is 256! Nothing has been changed; --first N takes the first N"),
              errors.npos);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
    EXPECT_EQ(run({"schedule", "replace", "many.txt", "--first", "256"}), 0);
    EXPECT_EQ(out.substr(0, out.find('\n')), "DRM: 2 -> 256 records");
}

TEST_F(ScheduleTest, AFileThatIsNoScheduleIsRejected) {
    files.files[u"/home/page.html"] = "<html>\nnothing\n</html>\n";
    EXPECT_EQ(run({"schedule", "replace", "page.html"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: /home/page.html: is no broadcast schedule of a known format\n");
    for (const std::string format : {"nine", "eibi", "hfcc"}) {
        EXPECT_EQ(run({"schedule", "show", "page.html", "--format", format}), 3) << format;
    }
    EXPECT_EQ(run({"schedule", "show", "nowhere"}), 3);
    EXPECT_EQ(run({"schedule", "show"}), 2);
    singleInstance.running = true;
    EXPECT_EQ(run({"schedule", "merge", "nine.txt"}), 5);
    EXPECT_EQ(files.files[u"/k7/List.ini"], kCtlList);
}
