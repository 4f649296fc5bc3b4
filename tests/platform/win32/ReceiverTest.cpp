// Loads from and saves to a receiver on drive r:. The program is built for the capacity of the test volume.
#include <windows.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "platform/win32/Poll.h"
#include "platform/win32/Program.h"

namespace {

std::string readDrive(const char* name) {
    std::ifstream stream(std::string("r:\\") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeDrive(const char* name, std::string_view bytes) {
    std::ofstream(std::string("r:\\") + name, std::ios::binary) << bytes;
}

constexpr std::string_view kList =
    "[Total]\r\ndrmnumber=1\r\namnumber=0\r\nfmnumber=0\r\n[DRMSchedule0]\r\nFrequency=6095\r\n"
    "Programme=\xE7\x94\xB5\xE5\x8F\xB0\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Asia\r\nUserDef=0\r\n";
constexpr std::string_view kUser = "[LAST]\r\nStation=4711\r\n[Total]\r\nfavnumber=0\r\n";

class ReceiverTest : public testing::Test {
protected:
    ReceiverTest() {
        std::remove("r:\\List.ini");
        std::remove("r:\\User.ini");
    }

    TemporaryFolder folder;
};

TEST_F(ReceiverTest, GetsTheListsAsSaved) {
    folder.write("List.ini", kList);
    folder.write("User.ini", kUser);
    writeDrive("List.ini", "an older and much longer list of the receiver, which goes as a whole");
    Program program(folder, builtProgram(LR"(receiver\Halcyon_K7.exe)"));
    ASSERT_TRUE(
        pressUntil([] { pressWithCtrl('S'); }, [] { return readDrive("User.ini").ends_with("[kvt update end]\r\n"); }));
    EXPECT_EQ(readDrive("List.ini"), folder.read("List.ini"));
    EXPECT_EQ(readDrive("User.ini"), folder.read("User.ini"));
    EXPECT_NE(readDrive("List.ini").find("Programme=\xE7\x94\xB5\xE5\x8F\xB0\r\n"), std::string::npos);
    EXPECT_NE(readDrive("User.ini").find("Station=4711\r\n"), std::string::npos);
    EXPECT_TRUE(program.close());
}

TEST_F(ReceiverTest, LoadingReplacesTheLists) {
    writeDrive("List.ini", kList);
    writeDrive("User.ini", kUser);
    Program program(folder, builtProgram(LR"(receiver\Halcyon_K7.exe)"));
    HWND drm = program.list(L"DRM List");
    ASSERT_EQ(program.rowCount(drm), 0);
    ASSERT_TRUE(
        pressUntil([] { pressWithCtrl('L'); }, [&] { return program.status() == L"Total Number Of DRM List: 1"; }));
    EXPECT_EQ(program.cell(drm, 1, 1), L"\u7535\u53F0");
    EXPECT_EQ(program.cell(drm, 1, 4), L"Asia");
    EXPECT_TRUE(program.close());
}

TEST_F(ReceiverTest, AMissingFileIsNamed) {
    Program program(folder, builtProgram(LR"(receiver\Halcyon_K7.exe)"));
    HWND report = program.dialogBy('L', L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"Can't find any file: r:\\List.ini!Please confirm whether the file is exist");
}

}  // namespace
