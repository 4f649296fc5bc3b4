// The command-line program on fakes with sample lists.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "ctl/CtlProgram.h"
#include "fakes/Text.h"
#include "storage/recovery/Recovery.h"

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

class CtlTest : public testing::Test, protected CtlProgram {
protected:
    void SetUp() override {
        files.files[u"/k7/List.ini"] = kCtlList;
        files.files[u"/k7/User.ini"] = kCtlUser;
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

    std::string& out = console.out;
    std::string& errors = console.errors;
};
