// The program with three DRM records, one AM, one FM and one favourite record, and the expected files.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/win32/Poll.h"
#include "platform/win32/Program.h"
#include "platform/win32/TemporaryFolder.h"
#include "storage/text/Utf8.h"

inline constexpr const wchar_t* kDrm = L"DRM List";
inline constexpr const wchar_t* kAm = L"AM List";
inline constexpr const wchar_t* kFm = L"FM List";
inline constexpr const wchar_t* kFavourite = L"Favourite";

// A file as the program saves it. The receiver's firmware expects one NUL if the UTF-16 text has an odd length.
inline std::string savedFile(std::string body) {
    body.insert(0, " \r\n");
    const bool isOdd = fromUtf8(body).size() % 2 != 0;
    return body + (isOdd ? std::string(1, '\0') : std::string()) + "\r\n[kvt update end]\r\n";
}

inline std::string drmRecord(int index, const std::string& programme, const std::string& frequency,
                             const std::string& target = "Europe") {
    return "[DRMSchedule" + std::to_string(index) + "]\r\nFrequency=" + frequency + "\r\nProgramme=" + programme +
           "\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=" + target + "\r\nUserDef=0\r\n";
}

inline std::string otherRecords() {
    return "[AMSchedule0]\r\nFrequency=198\r\nProgramme=Long\r\nUserDef=0\r\n"
           "[FMSchedule0]\r\nFrequency=98500\r\nProgramme=\xE7\x94\xB5\xE5\x8F\xB0\r\nUserDef=0\r\n";
}

inline std::string totals(int drm) {
    return "[Total]\r\ndrmnumber=" + std::to_string(drm) + "\r\namnumber=1\r\nfmnumber=1\r\n";
}

inline std::string userFile(int count, const std::string& records) {
    return savedFile(
        "[Version]\r\nmajor=1\r\n[LAST]\r\nTYPE=DRM\r\nStation=21000\r\nname=ZORPA TEST\r\nIndex=1\r\n"
        "[Total]\r\nfavnumber=" +
        std::to_string(count) + "\r\n" + records);
}

inline std::string favouriteRecord(int index, const std::string& programme, const std::string& frequency,
                                   const std::string& type) {
    return "[FAVSchedule" + std::to_string(index) + "]\r\nProgramme=" + programme + "\r\nFrequency=" + frequency +
           "\r\nTYPE=" + type + "\r\nUserDef=0\r\n";
}

class WindowFixture : public testing::Test {
protected:
    static constexpr int kDrmRows = 3;

    static std::string drmRecords() {
        return drmRecord(0, "Charlie", "6095") + drmRecord(1, "alpha", "15100") + drmRecord(2, "Bravo", "9620");
    }

    WindowFixture() {
        folder.write("List.ini", savedFile(totals(kDrmRows) + drmRecords() + otherRecords()));
        folder.write("User.ini", userFile(1, favouriteRecord(0, "City FM", "98500", "FM")));
    }

    bool opensBoxAt(HWND list, int row, int column) {
        program().doubleClick(list, row, column);
        return eventually(
            [&] { return program().boxIsOpen() && textOf(program().box()) == expectedBoxText(list, row, column); });
    }
    std::wstring expectedBoxText(HWND list, int row, int column) { return program().cell(list, row, column); }
    bool cellBecomes(HWND list, int row, int column, const wchar_t* text) {
        return eventually([&] { return program().cell(list, row, column) == text; });
    }
    bool statusBecomes(const wchar_t* text) {
        return eventually([&] { return program().status() == text; });
    }
    void deleteSecondOfThree(HWND list) {
        program().click(list, 2, 1);
        ASSERT_TRUE(statusBecomes(L"Press 'Delete' Key To Delete "));
        pressKey(VK_DELETE);
        ASSERT_TRUE(eventually([&] { return program().rowCount(list) == 2; }));
    }
    void pressButton(HWND dialog, int id) { PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); }
    void expectBoxOnCell(HWND list, int row, int column) {
        RECT box{};
        GetWindowRect(program().box(), &box);
        RECT cell = program().cellBounds(list, row, column);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&cell), 2);
        EXPECT_NEAR(box.left, cell.left, 3);
        EXPECT_NEAR(box.right, cell.right, 3);
        EXPECT_EQ(box.top, cell.top);
        EXPECT_NEAR(box.bottom, cell.bottom, 1);
    }

    HWND showDrm() { return program().showTab(1, kDrm); }
    HWND showAm() { return program().showTab(2, kAm); }
    HWND showFm() { return program().showTab(3, kFm); }
    HWND showFavourites() { return program().showTab(4, kFavourite); }

    Program& program() { return *program_; }
    void start() { program_ = std::make_unique<Program>(folder); }

    TemporaryFolder folder;
    std::unique_ptr<Program> program_;
};
