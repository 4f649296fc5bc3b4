#include <gtest/gtest.h>

#include <algorithm>

#include "contract/Backend.h"
#include "fakes/Text.h"
#include "sync/Downloader.h"

namespace {

class DownloaderContract : public testing::Test {
protected:
    bool get(std::u16string_view resource) {
        return downloader.download(httpServer() + std::u16string(resource), target);
    }
    std::optional<std::string> bytes() { return backend->files().read(target).bytes; }
    void expectFailure(std::u16string_view resource) {
        EXPECT_FALSE(get(resource)) << narrow(resource);
        EXPECT_FALSE(backend->files().exists(target)) << narrow(resource);
    }

    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<TestFolder> folder = backend->folder();
    std::u16string target = folder->path() + u"DRMSchedule.ini";
    std::unique_ptr<HttpClient> client = backend->httpClient();
    Downloader downloader{*client, backend->files()};
};

TEST_F(DownloaderContract, ASchedulesBytesArriveUnchanged) {
    ASSERT_FALSE(httpServer().empty()) << "run through http_server.py";
    for (const auto* resource : {u"/schedule-lf", u"/schedule-crlf"}) {
        ASSERT_TRUE(get(resource));
        const std::string text = bytes().value_or("");
        EXPECT_TRUE(text.starts_with("[DRMSchedule]"));
        const auto lines = std::count(text.begin(), text.end(), '\n');
        EXPECT_EQ(lines, 1 + 300 * 9);
        const bool crLf = std::u16string_view(resource).ends_with(u"crlf");
        EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), crLf ? lines : 0);
    }
}

TEST_F(DownloaderContract, EveryTransferEncodingIsDecoded) {
    for (const auto* resource : {u"/no-length", u"/chunked", u"/gzip", u"/deflate", u"/redirect", u"/headers-first"}) {
        EXPECT_TRUE(get(resource)) << narrow(resource);
        EXPECT_EQ(bytes(), "[DRMSchedule]\nplain\n") << narrow(resource);
        backend->files().remove(target);
    }
}

TEST_F(DownloaderContract, AnEmptyBodyIsAnEmptyFile) {
    EXPECT_TRUE(get(u"/empty"));
    EXPECT_EQ(bytes(), "");
}

TEST_F(DownloaderContract, AnErrorStatusIsAFailure) {
    expectFailure(u"/404");
    expectFailure(u"/500");
}

TEST_F(DownloaderContract, AStatusOtherThan200IsAFailure) {
    for (const auto* resource : {u"/status/201", u"/status/203", u"/status/204", u"/status/206", u"/status/304"}) {
        expectFailure(resource);
    }
}

TEST_F(DownloaderContract, NoCredentialsAreEverSent) {
    std::u16string withCredentials = httpServer();
    withCredentials.insert(std::u16string_view(u"http://").size(), u"user:password@");
    for (const auto* resource : {u"/digest", u"/proxy-digest"}) {
        ASSERT_TRUE(get(std::u16string(u"/requests-of") + resource)) << "starts the count";
        expectFailure(resource);
        EXPECT_FALSE(downloader.download(withCredentials + resource, target));
        ASSERT_TRUE(get(std::u16string(u"/requests-of") + resource));
        EXPECT_EQ(bytes(), "2") << narrow(resource);
    }
}

TEST_F(DownloaderContract, ACompressedBodyIsCompleteOrAFailure) {
    for (const auto* resource : {u"/gzip-cut", u"/gzip-checksum", u"/unknown-encoding"}) {
        expectFailure(resource);
    }
}

TEST_F(DownloaderContract, AnInterruptedBodyIsAFailure) {
    constexpr int kTries = 20;  // the result must not depend on when the interruption is noticed
    for (int i = 0; i < kTries; ++i) {
        for (const auto* resource : {u"/chunked-cut", u"/chunked-cut-in-chunk", u"/reset"}) {
            expectFailure(resource);
        }
    }
}

TEST_F(DownloaderContract, HeadersAreLimited) {
    EXPECT_TRUE(get(u"/headers/50"));
    expectFailure(u"/headers/70");
}

TEST_F(DownloaderContract, InterimResponsesAreLimited) {
    EXPECT_TRUE(get(u"/interim/10"));
    expectFailure(u"/interim/11");
}

TEST_F(DownloaderContract, RedirectsAreLimitedToHttpAndInNumber) {
    expectFailure(u"/redirect-to-file");
    expectFailure(u"/redirect-loop");
}

TEST_F(DownloaderContract, ATruncatedBodyIsAFailure) {
    expectFailure(u"/cut-short");
    EXPECT_EQ(narrow(downloader.reason()), "the answer is incomplete");
}

TEST_F(DownloaderContract, ABodyOfMoreThan16MiBIsAFailure) {
    EXPECT_TRUE(get(u"/bytes/16777216"));
    EXPECT_EQ(backend->files().size(target), 16'777'216U);
    expectFailure(u"/bytes/16777217");
    expectFailure(u"/bytes/67108864");
}

TEST_F(DownloaderContract, ASilentServerTimesOut) {
    Downloader impatient(*client, backend->files(), std::chrono::milliseconds(300));
    EXPECT_FALSE(impatient.download(httpServer() + u"/stall", target));
    EXPECT_FALSE(impatient.download(httpServer() + u"/stall-in-body", target));
    EXPECT_FALSE(backend->files().exists(target));
}

TEST_F(DownloaderContract, TheReasonOfAFailureIsKnown) {
    const auto reasonOf = [this](std::u16string url) {
        EXPECT_FALSE(downloader.download(url, target)) << narrow(url);
        return narrow(downloader.reason());
    };
    EXPECT_EQ(reasonOf(httpServer() + u"/404"), "the server answers with status 404");
    EXPECT_EQ(reasonOf(httpServer() + u"/status/204"), "the server answers with status 204");
    EXPECT_EQ(reasonOf(httpServer() + u"/bytes/16777217"), "the answer is too long");
    EXPECT_EQ(reasonOf(httpServer() + u"/headers/70"), "the answer is too long");
    EXPECT_EQ(reasonOf(httpServer() + u"/gzip-cut"), "the answer cannot be decompressed, or is too long");
    EXPECT_EQ(reasonOf(httpServer() + u"/redirect-loop"), "too many redirects");
    EXPECT_EQ(reasonOf(u"http://127.0.0.1:1/"), "the host refuses the connection or cannot be reached");
    const std::u16string tooLongForAName(64, u'a');
    EXPECT_EQ(reasonOf(u"http://" + tooLongForAName + u".invalid/"), "the host was not found");
    Downloader impatient(*client, backend->files(), std::chrono::milliseconds(300));
    EXPECT_FALSE(impatient.download(httpServer() + u"/stall", target));
    EXPECT_EQ(narrow(impatient.reason()), "the server does not answer");
}

TEST_F(DownloaderContract, AFailureRemovesTheOldFile) {
    ASSERT_TRUE(backend->files().write(target, "[DRMSchedule] of yesterday", Flush::Now));
    expectFailure(u"/404");
}

TEST_F(DownloaderContract, NoCacheIsUsed) {
    ASSERT_TRUE(get(u"/count"));
    const auto first = bytes();
    ASSERT_TRUE(get(u"/count"));
    EXPECT_NE(bytes(), first);
}

TEST_F(DownloaderContract, OtherSchemesAreRejected) {
    ASSERT_TRUE(backend->files().write(folder->path() + u"local", "x", Flush::Now));
    EXPECT_FALSE(downloader.download(u"file://" + folder->path() + u"local", target));
    EXPECT_FALSE(downloader.download(u"http://127.0.0.1:1/", target));
    EXPECT_FALSE(downloader.download(u"", target));
    EXPECT_FALSE(backend->files().exists(target));
}

TEST_F(DownloaderContract, AFileThatCannotBeWrittenIsAFailure) {
    folder->makeFolder(target);
    EXPECT_FALSE(get(u"/schedule-lf"));
}

}  // namespace
