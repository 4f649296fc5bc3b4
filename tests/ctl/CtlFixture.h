// The command-line program on fakes: takes a command line; gives exit code, texts and files.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "ctl/CommandLine.h"
#include "ctl/Commands.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "storage/recovery/Recovery.h"

class FakeConsole : public Console {
public:
    bool write(std::string_view text) override {
        out += isBroken ? "" : text;
        return !isBroken;
    }
    void writeError(std::string_view text) override { errors += text; }
    std::optional<std::string> readAll() override { return input; }
    bool showsColours() override { return isTerminal; }
    bool showsProgress() override { return isTerminal; }

    std::string out;
    std::string errors;
    std::optional<std::string> input = "";
    bool isTerminal = false;
    bool isBroken = false;
};

// Two records in each list except FM, which has one.
inline const std::string kCtlList =
    "[Total]\r\ndrmnumber=2\r\namnumber=2\r\nfmnumber=1\r\n"
    "[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=Aurora\r\nStartStopTimeUTC=07:00-16:00\r\nTarget=Europe\r\n"
    "[DRMSchedule1]\r\nFrequency=11955\r\nProgramme=\xE9\x9D\x92\xE7\xA9\xBA\r\nStartStopTimeUTC=23:00-24:00\r\n"
    "Target=Asia\r\n"
    "[AMSchedule0]\r\nFrequency=198\r\nProgramme=Long\r\n[AMSchedule1]\r\nFrequency=6070\r\nProgramme=Short\r\n"
    "[FMSchedule0]\r\nFrequency=98500\r\nProgramme=City\r\n\r\n[kvt update end]\r\n";
inline const std::string kCtlUser =
    "[Version]\r\nmajor=3\r\n[Total]\r\nfavnumber=2\r\n"
    "[FAVSchedule0]\r\nProgramme=Aurora\r\nFrequency=6095\r\nTYPE=DRM\r\n"
    "[FAVSchedule1]\r\nProgramme=City\r\nFrequency=98500\r\nTYPE=FM\r\n\r\n[kvt update end]\r\n";

class CtlTest : public testing::Test {
protected:
    void SetUp() override {
        files.files[u"/k7/List.ini"] = kCtlList;
        files.files[u"/k7/User.ini"] = kCtlUser;
    }

    // Returns the exit code; `out` and `errors` hold the output of this run only.
    int run(const std::vector<std::string>& words) {
        console.out.clear();
        console.errors.clear();
        const auto parsed = parseCommandLine(words);
        if (const auto* const end = std::get_if<CommandLineEnd>(&parsed)) {
            return static_cast<int>(endCommandLine(console, *end));
        }
        Services services{files, codePages, volumes, httpClient, singleInstance, clock, console, u"/k7/", u"/home/"};
        return static_cast<int>(runCommand(services, std::get<Options>(parsed)));
    }
    void connectReceiver() {
        volumes.volumes = {{u"/disk/", DiskGeometry{1, 1024, 999}}};
        files.files[u"/disk/List.ini"] = kCtlList;
        files.files[u"/disk/User.ini"] = kCtlUser;
    }

    // Leaves the files of an interrupted run of the window, with these lists in its snapshot.
    void leaveSnapshot(const std::string& list, const std::string& user) {
        Recovery recovery(u"/k7/", files);
        recovery.mayLeave(ListFileId::List, FileState::of(files.files[u"/k7/List.ini"]));
        recovery.mayLeave(ListFileId::User, FileState::of(files.files[u"/k7/User.ini"]));
        ASSERT_TRUE(recovery.keep({list, user}));
    }

    FakeFiles files;
    FakeCodePages codePages;
    FakeVolumes volumes;
    FakeHttpClient httpClient;
    FakeSingleInstance singleInstance;
    FakeClock clock;
    FakeConsole console;
    std::string& out = console.out;
    std::string& errors = console.errors;
};
