// The program is ended at random moments of its edits; each restart shows every edit that had been finished.
#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <random>

#include "win32/Poll.h"
#include "win32/Program.h"
#include "win32/TemporaryFolder.h"

namespace {

constexpr int kKills = 20;
constexpr int kRows = 3;
constexpr const wchar_t* kDrm = L"DRM List";

std::string listFile() {
    std::string text = " \r\n[Total]\r\ndrmnumber=3\r\namnumber=0\r\nfmnumber=0\r\n";
    for (int row = 0; row < kRows; ++row) {
        text += "[DRMSchedule" + std::to_string(row) + "]\r\nFrequency=6095\r\nProgramme=Start\r\n" +
                "StartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\nUserDef=0\r\n";
    }
    return text + "\r\n[kvt update end]\r\n";
}

class Kill : public testing::Test {
protected:
    Kill() { folder.write("List.ini", listFile()); }

    void openBox(int row) {
        program->doubleClick(list, row, 1);
        ASSERT_TRUE(eventually([&] {
            return program->boxIsOpen() && textOf(program->box()) == names[static_cast<std::size_t>(row - 1)];
        }));
    }
    std::wstring randomName() {
        std::wstring name;
        for (int i = 0; i < 4; ++i) {
            name += static_cast<wchar_t>(L'a' + std::uniform_int_distribution<int>(0, 25)(random));
        }
        return name;
    }
    int randomRow() { return std::uniform_int_distribution<int>(1, kRows)(random); }
    void start() {
        program = std::make_unique<Program>(folder);
        list = program->list(kDrm);
    }

    TemporaryFolder folder;
    std::unique_ptr<Program> program;
    HWND list = nullptr;
    std::vector<std::wstring> names = std::vector<std::wstring>(kRows, L"Start");
    unsigned seed = std::random_device()();
    std::mt19937 random{seed};
};

TEST_F(Kill, EveryFinishedEditSurvives) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::vector<std::wstring> underWay = names;
    int finished = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        start();
        const auto shown = program->columnTexts(list, 1);
        ASSERT_TRUE(shown == names || shown == underWay) << "after kill " << kill;
        names = shown;
        for (int edits = std::uniform_int_distribution<int>(0, 2)(random); edits > 0; --edits) {
            const int row = randomRow();
            const std::wstring name = randomName();
            ASSERT_NO_FATAL_FAILURE(openBox(row));
            typeInto(program->box(), name + L"\r");
            ASSERT_TRUE(eventually([&] { return program->cell(list, row, 1) == name; }));
            names[static_cast<std::size_t>(row - 1)] = name;
            ++finished;
        }
        const int row = randomRow();
        underWay = names;
        underWay[static_cast<std::size_t>(row - 1)] = randomName();
        ASSERT_NO_FATAL_FAILURE(openBox(row));
        typeInto(program->box(), underWay[static_cast<std::size_t>(row - 1)] + L"\r");
        // From before the first key until well after the snapshot of the edit.
        const auto moment = std::chrono::microseconds(std::uniform_int_distribution<int>(0, 20'000)(random));
        const auto until = std::chrono::steady_clock::now() + moment;
        while (std::chrono::steady_clock::now() < until) {
        }
        program.reset();  // ends the process without a word
    }
    start();
    const auto shown = program->columnTexts(list, 1);
    EXPECT_TRUE(shown == names || shown == underWay);
    ASSERT_TRUE(program->close());
    EXPECT_FALSE(std::filesystem::exists(folder.file("Recovery")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("List.ini.k7new")));
    EXPECT_NE(folder.read("List.ini").find("[kvt update end]"), std::string::npos);
    std::cout << kKills << " kills, " << finished << " finished edits, all shown again\n";
}

}  // namespace
