#include <gtest/gtest.h>

#include "contract/Backend.h"
#include "platform/win32/WinHttp.h"
#include "sync/Downloader.h"

namespace {

// Threads of the library may outlive the exchange that started them.
TEST(WinHttpTest, TheLibraryStaysLoadedAfterADownload) {
    ASSERT_FALSE(httpServer().empty()) << "run through http_server.py";
    const auto backend = makeBackend();
    const auto client = backend->httpClient();
    ASSERT_TRUE(Downloader(*client, backend->files()).fetch(httpServer() + u"/schedule-lf"));
    EXPECT_NE(GetModuleHandleW(L"winhttp.dll"), nullptr);
}

}  // namespace
