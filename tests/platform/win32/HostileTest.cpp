// The real program against hostile servers: one message, no file left behind, the list unchanged.
#include <windows.h>
#include <gtest/gtest.h>
#include <psapi.h>
#include <winsock2.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "platform/win32/OneAnswerServer.h"
#include "platform/win32/Poll.h"
#include "platform/win32/Program.h"
#include "platform/win32/TemporaryFolder.h"

namespace {

constexpr const wchar_t* kFailed = L"Download failed,Please check the network";
constexpr std::size_t kMostMemory = std::size_t{64} << 20;  // bytes; peak above the idle program
const std::string kHead = "HTTP/1.1 200 OK\r\nConnection: close\r\n";
const std::string kSchedule =
    "[DRMSchedule]\nStartStopTimeUTC=0600-0700\nx\nFrequency=6000\nTarget=T\nx\nProgramme=P\nx\nx\nx\n";

std::function<void(SOCKET)> sends(const std::string& bytes) {
    return [bytes](SOCKET client) { sendAll(client, bytes); };
}

std::string redirectTo(const std::string& target) {
    return "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " + target + "\r\n\r\n";
}

bool runsOnWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

class HostileTest : public testing::Test {
protected:
    HostileTest() {
        folder.write("List.ini",
                     "[Total]\r\ndrmnumber=1\r\namnumber=0\r\nfmnumber=0\r\n[DRMSchedule0]\r\nFrequency=6095\r\n"
                     "Programme=Mine\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\nUserDef=0\r\n");
    }

    void expectRefused(const std::function<void(SOCKET)>& answer, const wchar_t* message = kFailed) {
        const OneAnswerServer server(answer);
        folder.write("config.ini", server.address() + "/schedule\r\n");
        Program program(folder);
        HWND drm = program.list(L"DRM List");
        const std::size_t idle = memoryOf(program).WorkingSetSize;
        HWND report = nullptr;
        for (int patience = 3; report == nullptr && patience > 0; --patience) {  // on a loaded machine 16 MiB take long
            report = program.dialogBy('I', L"Halcyon_K7");
        }
        ASSERT_NE(report, nullptr);
        EXPECT_EQ(messageOf(report), message);
        PostMessageW(report, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
        ASSERT_TRUE(eventually([&] { return IsWindow(report) == 0; }));
        EXPECT_EQ(program.columnTexts(drm, 1), std::vector<std::wstring>{L"Mine"});
        const std::size_t beyond = memoryOf(program).PeakWorkingSetSize - idle;
        RecordProperty("KilobytesBeyondIdle", static_cast<int>(beyond / 1024));
        if (isMemoryBounded) {
            EXPECT_LT(beyond, kMostMemory);
        }
        ASSERT_TRUE(program.close());
        EXPECT_NE(folder.read("List.ini").find("Programme=Mine\r\n"), std::string::npos);
    }
    bool isMemoryBounded = true;
    void expectNothingLeft() { EXPECT_FALSE(std::filesystem::exists(folder.file("DRMSchedule.ini"))); }

    TemporaryFolder folder;

private:
    static PROCESS_MEMORY_COUNTERS memoryOf(const Program& program) {
        DWORD id = 0;
        GetWindowThreadProcessId(program.window(), &id);
        HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
        PROCESS_MEMORY_COUNTERS counters{};
        EXPECT_NE(K32GetProcessMemoryInfo(process, &counters, sizeof counters), 0);
        EXPECT_GT(counters.PeakWorkingSetSize, 0U);
        CloseHandle(process);
        return counters;
    }
};

TEST_F(HostileTest, AnEndlessBody) {
    expectRefused([](SOCKET client) {
        const std::string chunk = "10000\r\n" + std::string(0x10000, 'x') + "\r\n";
        bool listens = sendAll(client, kHead + "Transfer-Encoding: chunked\r\n\r\n");
        while (listens) {
            listens = sendAll(client, chunk);
        }
    });
    expectNothingLeft();
}

// Sends `start`, then `part` until the client disconnects.
std::function<void(SOCKET)> forever(const std::string& start, const std::string& part) {
    return [=](SOCKET client) {
        bool listens = sendAll(client, start);
        while (listens) {
            listens = sendAll(client, part);
        }
    };
}

TEST_F(HostileTest, AnEndlessPackedBodyOfNothing) {
    std::string stored;  // stored (uncompressed) deflate blocks of zero length
    for (int i = 0; i < 10'000; ++i) {
        stored.append("\0\0\0\xff\xff", 5);
    }
    expectRefused(forever(kHead + "Content-Encoding: deflate\r\n\r\n", stored));
    expectNothingLeft();
}

// Wine ignores the option that limits headers, so the memory is checked on Windows only.
TEST_F(HostileTest, HeadersWithoutAnEnd) {
    isMemoryBounded = !runsOnWine();
    expectRefused(forever(kHead, "X-Header: " + std::string(1000, 'x') + "\r\n"));
    expectNothingLeft();
}

TEST_F(HostileTest, InterimAnswersWithoutAnEnd) {
    expectRefused(forever("", "HTTP/1.1 100 Continue\r\n\r\n"));
    expectNothingLeft();
}

TEST_F(HostileTest, TheExtensionOfAChunkWithoutAnEnd) {
    expectRefused(forever(kHead + "Transfer-Encoding: chunked\r\n\r\n5;x=", std::string(0x10000, 'x')));
    expectNothingLeft();
}

TEST_F(HostileTest, AChallengeWithoutAnEnd) {
    int requests = 0;
    expectRefused([&requests](SOCKET client) {
        ++requests;
        sendAll(client,
                "HTTP/1.1 401 Unauthorized\r\nConnection: close\r\nContent-Length: 0\r\n"
                "WWW-Authenticate: Digest realm=\"r\", nonce=\"" +
                    std::to_string(requests) + "\", stale=true\r\n\r\n");
    });
    EXPECT_EQ(requests, 1);
    expectNothingLeft();
}

TEST_F(HostileTest, AStatusOtherThan200) {
    for (const char* status : {"201 Created", "206 Partial Content", "304 Not Modified"}) {
        expectRefused(sends("HTTP/1.1 " + std::string(status) + "\r\nConnection: close\r\nContent-Length: " +
                            std::to_string(kSchedule.size()) + "\r\n\r\n" + kSchedule));
    }
    expectNothingLeft();
}

TEST_F(HostileTest, APackedBodyWithoutItsEnd) {
    const std::string packed("\x1f\x8b\x08\0\0\0\0\0\x02\x03\x8b\x76\x09\xf2\x0d\x4e\xce\xc8", 18);
    expectRefused(sends(kHead + "Content-Encoding: gzip\r\nContent-Length: 18\r\n\r\n" + packed));
    expectNothingLeft();
}

TEST_F(HostileTest, RedirectsInACircle) {
    expectRefused(sends(redirectTo("/schedule")));
    expectNothingLeft();
}

TEST_F(HostileTest, ARedirectToAFile) {
    folder.write("local.txt", kSchedule);
    std::string path = folder.file("local.txt").string();
    std::replace(path.begin(), path.end(), '\\', '/');
    expectRefused(sends(redirectTo("file:///" + path)));
    expectNothingLeft();
}

TEST_F(HostileTest, ALengthThatIsNotKept) {
    expectRefused(sends(kHead + "Content-Length: 1000000\r\n\r\n" + kSchedule));
    expectNothingLeft();
}

TEST_F(HostileTest, Nuls) {
    const std::string nuls(5000, '\0');
    expectRefused(sends(kHead + "Content-Length: 5000\r\n\r\n" + nuls), L"Illegal file,sync failed");
    expectNothingLeft();
}

TEST_F(HostileTest, AFolderInThePlaceOfTheDownload) {
    std::filesystem::create_directory(folder.file("DRMSchedule.ini"));
    expectRefused(sends(kHead + "Content-Length: " + std::to_string(kSchedule.size()) + "\r\n\r\n" + kSchedule));
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("DRMSchedule.ini")));
}

}  // namespace
