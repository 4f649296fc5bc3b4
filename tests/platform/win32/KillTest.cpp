// Kills the program at random moments of edits, saves and closing; each restart must show every finished edit.
#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <random>

#include "platform/win32/Poll.h"
#include "platform/win32/Program.h"
#include "platform/win32/TemporaryFolder.h"

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

class KillTest : public testing::Test {
protected:
    KillTest() { folder.write("List.ini", listFile()); }

    void openBox(int row) {
        program->doubleClick(list, row, 1);
        ASSERT_TRUE(eventually([&] {
            return program->boxIsOpen() && textOf(program->box()) == names[static_cast<std::size_t>(row - 1)];
        }));
    }
    // `after`: the texts that are shown after the edit.
    void beginEdit(std::vector<std::wstring>& after) {
        const int row = randomUpTo(kRows - 1) + 1;
        ASSERT_NO_FATAL_FAILURE(openBox(row));
        after = names;
        after[static_cast<std::size_t>(row - 1)] = randomName();
        typeInto(program->box(), after[static_cast<std::size_t>(row - 1)] + L"\r");
    }
    void edit() {
        std::vector<std::wstring> after;
        ASSERT_NO_FATAL_FAILURE(beginEdit(after));
        ASSERT_TRUE(eventually([&] { return program->columnTexts(list, 1) == after; }));
        names = after;
        ++edits;
    }
    // Without a receiver the lists are saved in the program's folder, then a message reports that no disk was found.
    void beginSave(HWND& box) {
        box = program->dialogBy('S', L"Halcyon_K7");
        ASSERT_NE(box, nullptr);
        ASSERT_EQ(messageOf(box), L"Can't find disk,please connect DRM receiver to PC");
    }
    void save() {
        HWND box = nullptr;
        ASSERT_NO_FATAL_FAILURE(beginSave(box));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        ASSERT_TRUE(eventually([&] { return IsWindow(box) == 0 && GetForegroundWindow() == program->window(); }));
        const std::string saved = folder.read("List.ini");
        for (const std::wstring& name : names) {
            EXPECT_NE(saved.find("\r\nProgramme=" + std::string(name.begin(), name.end()) + "\r\n"), std::string::npos);
        }
        ++saves;
    }
    // Starts a command without waiting for its end; returns the names shown after it.
    void beginLast(std::vector<std::wstring>& underWay) {
        underWay = names;
        HWND box = nullptr;
        switch (randomUpTo(3)) {
            case 0:
                PostMessageW(program->window(), WM_CLOSE, 0, 0);
                break;
            case 1:
                pressWithCtrl('S');
                break;
            case 2:
                ASSERT_NO_FATAL_FAILURE(beginSave(box));
                break;
            default:
                ASSERT_NO_FATAL_FAILURE(beginEdit(underWay));
        }
    }
    int randomUpTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
    std::wstring randomName() {
        std::wstring name;
        for (int i = 0; i < 4; ++i) {
            name += static_cast<wchar_t>(L'a' + randomUpTo(25));
        }
        return name;
    }
    void start() {
        program = std::make_unique<Program>(folder);
        list = program->list(kDrm);
    }

    TemporaryFolder folder;
    std::unique_ptr<Program> program;
    HWND list = nullptr;
    std::vector<std::wstring> names = std::vector<std::wstring>(kRows, L"Start");
    int edits = 0;
    int saves = 0;
    unsigned seed = std::random_device()();
    std::mt19937 random{seed};
};

TEST_F(KillTest, EveryFinishedEditSurvives) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::vector<std::wstring> underWay = names;
    for (int kill = 0; kill < kKills; ++kill) {
        start();
        const auto shown = program->columnTexts(list, 1);
        ASSERT_TRUE(shown == names || shown == underWay) << "after kill " << kill;
        names = shown;
        for (int steps = randomUpTo(2); steps > 0; --steps) {
            ASSERT_NO_FATAL_FAILURE(randomUpTo(3) == 0 ? save() : edit());
        }
        ASSERT_NO_FATAL_FAILURE(beginLast(underWay));
        // From before the first key to well after the snapshot of an edit or the files of a save.
        const auto moment = std::chrono::microseconds(randomUpTo(20'000));
        const auto until = std::chrono::steady_clock::now() + moment;
        while (std::chrono::steady_clock::now() < until) {
        }
        program.reset();  // kills the process
    }
    start();
    const auto shown = program->columnTexts(list, 1);
    EXPECT_TRUE(shown == names || shown == underWay);
    ASSERT_TRUE(program->close());
    EXPECT_NE(std::filesystem::exists(folder.file("Recovery/Snapshot1")),
              std::filesystem::exists(folder.file("Recovery/Snapshot2")))
        << "one is the last known good state";
    EXPECT_FALSE(std::filesystem::exists(folder.file("LIST.K7N")));
    EXPECT_NE(folder.read("List.ini").find("[kvt update end]"), std::string::npos);
    std::cout << kKills << " kills, " << edits << " finished edits, all shown again; " << saves << " finished saves\n";
}

}  // namespace
