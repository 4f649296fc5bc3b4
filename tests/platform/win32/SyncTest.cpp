// The sync of the whole program with a server in the test.
#include <future>

#include "platform/win32/OneAnswerServer.h"
#include "platform/win32/WindowFixture.h"

namespace {

using SyncTest = WindowFixture;

std::string scheduleRecord(const std::string& times, const std::string& frequency) {
    return "StartStopTimeUTC=" + times + "\r\nDays=1234567\r\nFrequency=" + frequency +
           "\r\nTarget=Europe\r\nPower=100\r\nProgramme=Radio " + frequency +
           "\r\nLanguage=English\r\nSite=Somewhere\r\nCountry=XXX\r\n";
}

TEST_F(SyncTest, RebuildsTheListFromAPublishedSchedule) {
    const OneAnswerServer server("[DRMSchedule]\r\nx\r\n" + scheduleRecord("0600-0730", "3955") +
                                 scheduleRecord("2300-0100", "3965") + scheduleRecord("2300-2400", "03975"));
    folder.write("config.ini", server.address() + "/schedule\r\n");
    start();
    HWND report = program().dialogBy('I', L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"The number of new station is: 2");
    pressButton(report, IDOK);
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 2"));
    HWND drm = program().list(kDrm);
    EXPECT_EQ(program().columnTexts(drm, 2), (std::vector<std::wstring>{L"3955", L"03975"}));
    EXPECT_EQ(program().columnTexts(drm, 3), (std::vector<std::wstring>{L"06:00-07:30", L"23:00-24:00"}));
    EXPECT_FALSE(std::filesystem::exists(folder.file("DRMSchedule.ini")));
}

TEST_F(SyncTest, NoInputIsAcceptedDuringADownload) {
    std::promise<void> answer;
    const std::string schedule = "[DRMSchedule]\r\nx\r\n" + scheduleRecord("0600-0730", "3955");
    const OneAnswerServer server([&, released = answer.get_future().share()](SOCKET client) {
        released.wait();
        sendAll(client, "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(schedule.size()) +
                            "\r\n\r\n" + schedule);
    });
    folder.write("config.ini", server.address() + "/schedule\r\n");
    start();
    HWND drm = program().list(kDrm);
    program().click(drm, 2, 1);
    EXPECT_TRUE(statusBecomes(L"Press 'Delete' Key To Delete "));
    EXPECT_TRUE(
        pressUntil([] { pressWithCtrl('I'); }, [&] { return program().status() == L"Downloading,Please wait..."; }));
    pressKey(VK_DELETE);
    pressKey(VK_RETURN);
    pressWithCtrl('N');
    pressWithCtrl(VK_TAB);
    program().clickHeader(drm, 1);
    EXPECT_EQ(program().columnTexts(drm, 1), (std::vector<std::wstring>{L"Charlie", L"alpha", L"Bravo"}));
    EXPECT_EQ(program().status(), L"Downloading,Please wait...");
    answer.set_value();
    HWND report = program().dialog(L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"The number of new station is: 1");
    EXPECT_FALSE(program().boxIsOpen());
    pressButton(report, IDOK);
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 1"));
    EXPECT_EQ(program().columnTexts(drm, 2), (std::vector<std::wstring>{L"3955"}));
    EXPECT_TRUE(program().close());
}

TEST_F(SyncTest, ATooLongScheduleKeepsTheListAndTheStatusLine) {
    const OneAnswerServer server("[DRMSchedule]\r\n" + std::string(40'000, 'x'));
    folder.write("config.ini", server.address() + "/schedule\r\n");
    start();
    HWND report = program().dialogBy('I', L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"Overflow");
    // Closing the box activates the window, which is no activation by the user, as one from elsewhere is. The message
    // is sent by the test, since the system decides which window was active before.
    const auto activatedFrom = [&](HWND other) {
        SendMessageW(program().window(), WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(other));
        return program().status();
    };
    EXPECT_EQ(activatedFrom(report), L"Synchronizing,Please wait...");
    EXPECT_EQ(activatedFrom(nullptr), L"Total Number Of DRM List: 3");
    pressButton(report, IDOK);
    ASSERT_TRUE(eventually([&] { return IsWindow(report) == 0 && program().focus() == program().list(kDrm); }));
    EXPECT_EQ(program().rowCount(program().list(kDrm)), 3);
}

TEST_F(SyncTest, AFailedDownloadLeavesTheList) {
    folder.write("config.ini", "http://127.0.0.1:1/nobody-listens\r\n");
    start();
    HWND report = program().dialogBy('I', L"Halcyon_K7");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(messageOf(report), L"Download failed,Please check the network");
    pressButton(report, IDOK);
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 3"));
}

}  // namespace
