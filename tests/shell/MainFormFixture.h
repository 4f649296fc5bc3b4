// The program on fake controls, started with lists of numbered stations.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fakes/FakePlatform.h"
#include "shell/MainForm.h"

class MainFormFixture : public ::testing::Test {
protected:
    static constexpr const char16_t* kList = u"/app/List.ini";
    static constexpr const char16_t* kUser = u"/app/User.ini";

    static std::string listFile(int drm, int am, int fm) {
        std::string text = " \r\n[Total]\r\ndrmnumber=" + std::to_string(drm) + "\r\namnumber=" + std::to_string(am) +
                           "\r\nfmnumber=" + std::to_string(fm) + "\r\n";
        appendRecords(text, "DRMSchedule", drm, "6095", "StartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\n");
        appendRecords(text, "AMSchedule", am, "198", "");
        appendRecords(text, "FMSchedule", fm, "98500", "");
        return text;
    }
    void startWith(int drm, int am, int fm) {
        platform.files.files[kList] = listFile(drm, am, fm);
        start();
    }
    void start() {
        form = std::make_unique<MainForm>(platform.bundle);
        ASSERT_TRUE(form->Form_Load());
    }
    void select(int tab, int row) { platform.gridViews[static_cast<std::size_t>(tab)].grid->setSelected(row, true); }
    // Opens the box over the first cell of the DRM list and types without pressing Enter.
    void typeOver(const std::u16string& text) {
        select(0, 1);
        platform.grid(0).itemDoubleClicked();
        ASSERT_TRUE(platform.editBox.visible);
        platform.editBox.content = text;
    }
    void choose(MenuItem item) { platform.popupMenu.listener->menuChosen(item); }

    FakePlatform platform;
    std::unique_ptr<MainForm> form;

private:
    static void appendRecords(std::string& text, const char* section, int count, const char* frequency,
                              const char* more) {
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            text += "[" + std::string(section) + number + "]\r\nFrequency=" + frequency + "\r\nProgramme=Radio " +
                    number + "\r\n" + more + "UserDef=0\r\n";
        }
    }
};
