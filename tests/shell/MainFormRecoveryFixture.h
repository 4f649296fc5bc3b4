// A main window over lists that a killed run, the user or the disk has left.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fakes/FakePlatform.h"
#include "shell/MainForm.h"

class MainFormRecoveryFixture : public testing::Test {
protected:
    static constexpr const char16_t* kList = u"/app/List.ini";
    static constexpr const char16_t* kUser = u"/app/User.ini";
    static constexpr const char16_t* kBackup = u"/app/Backup/List-20261120T224501Z.ini";
    inline static const std::string kTwoStations =
        " \r\n[Total]\r\ndrmnumber=2\r\namnumber=0\r\nfmnumber=0\r\n"
        "[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=\xE4\xB8\xAD\r\nStartStopTimeUTC=06:00-07:00\r\nTarget=EU\r\n"
        "UserDef=0\r\n[DRMSchedule1]\r\nFrequency=7000\r\nProgramme=BB\r\nStartStopTimeUTC=06:00-07:00\r\nTarget=EU\r\n"
        "UserDef=0\r\n\r\n[kvt update end]\r\n";

    MainFormRecoveryFixture() { platform->files.files[kList] = kTwoStations; }

    void start() {
        form = std::make_unique<MainForm>(platform->bundle);
        ASSERT_TRUE(form->Form_Load());
    }
    // Starts a new process on the present files.
    void killAndRestart() {
        const FakeFiles files = platform->files;
        form.reset();
        platform = std::make_unique<FakePlatform>();
        platform->files = files;
        platform->files.failing.clear();
        start();
    }
    void close() {
        platform->mainWindow.close();
        form.reset();
    }
    std::u16string programme(int row) { return std::u16string(platform->rows(0).text(row, 1)); }
    void select(int tab, int row) { platform->gridViews[static_cast<std::size_t>(tab)].grid->setSelected(row, true); }
    void choose(MenuItem item) { platform->popupMenu.listener->menuChosen(item); }
    // Starts the program and loads this list, and no favourites.
    void loadFromReceiver(const std::string& list) {
        platform->connectReceiver(u"/media/rx/");
        platform->files.files[u"/media/rx/List.ini"] = list;
        platform->files.files[u"/media/rx/User.ini"] = "";
        start();
        choose(MenuItem::LoadFromReceiver);
    }
    // Adds an AM record with the programme "Added".
    void addRecord() {
        platform->tabs.click(1);
        choose(MenuItem::AddNew);
        platform->addFormView.at(AddField::txtLabel).text = u"Added";
        platform->addFormView.at(AddField::txtFreq).text = u"198";
        platform->addFormView.listener->saveClicked();
    }
    void edit(const std::u16string& text) {
        select(0, 1);
        platform->grid(0).itemDoubleClicked();
        ASSERT_TRUE(platform->editBox.visible);
        platform->editBox.content = text;
        platform->editBox.listener->enterPressed();
    }

    std::unique_ptr<FakePlatform> platform = std::make_unique<FakePlatform>();
    std::unique_ptr<MainForm> form;
};
