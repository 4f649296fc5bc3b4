#include <gtest/gtest.h>

#include "contract/Backend.h"
#include "sync/Downloader.h"

namespace {

// The part of the contract case that Wine passes.
TEST(CutShortTest, ABodyShorterThanItsLengthIsAFailure) {
    const auto backend = makeBackend();
    const auto folder = backend->folder();
    const std::u16string target = folder->path() + u"DRMSchedule.ini";
    ASSERT_FALSE(httpServer().empty()) << "run through http_server.py";
    const auto client = backend->httpClient();
    EXPECT_FALSE(Downloader(*client, backend->files()).download(httpServer() + u"/cut-short", target));
    EXPECT_FALSE(backend->files().exists(target));
}

}  // namespace
