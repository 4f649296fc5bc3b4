#include <gtest/gtest.h>

#include <map>
#include <string>

#include "fakes/FakeFiles.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/Text.h"
#include "sync/Downloader.h"

namespace {

const std::u16string kUrl = u"http://a.example/s";
const std::u16string kPath = u"/program/DRMSchedule.ini";
constexpr const char* kBody = "[DRMSchedule]";

HttpAnswer answerOf(int status, std::u16string location = u"") {
    return {status, std::move(location), std::nullopt, "", kBody};
}

class DownloaderTest : public testing::Test {
protected:
    DownloaderTest() {
        files.files[kPath] = "of yesterday";
        client.answer = answerOf(200);
    }

    bool download(std::u16string_view url = kUrl) { return downloader.download(url, kPath); }
    bool downloadAnnounced(std::string length) {
        client.answer.announcedLength = std::move(length);
        return download();
    }
    void expectNoFile() { EXPECT_EQ(files.files.count(kPath), 0U); }

    FakeHttpClient client;
    FakeFiles files;
    Downloader downloader{client, files};
};

TEST_F(DownloaderTest, TheBodyReplacesTheFile) {
    EXPECT_TRUE(download());
    EXPECT_EQ(files.files[kPath], kBody);
    EXPECT_EQ(client.urls, (std::vector<std::u16string>{kUrl}));
}

TEST_F(DownloaderTest, AnEmptyBodyIsAnEmptyFile) {
    client.answer.body.clear();
    EXPECT_TRUE(downloadAnnounced("0"));
    EXPECT_EQ(files.files[kPath], "");
}

TEST_F(DownloaderTest, EveryExchangeIsLimited) {
    client.answersAt[kUrl] = answerOf(302, u"http://b.example/");
    EXPECT_TRUE(download());
    ASSERT_EQ(client.limitsGiven.size(), 2U);
    for (const HttpLimits& limits : client.limitsGiven) {
        EXPECT_EQ(limits.idle, std::chrono::seconds(30));
        EXPECT_EQ(limits.bytes, 16U * 1024 * 1024);
    }
}

TEST_F(DownloaderTest, TheIdleLimitIsPassedOn) {
    EXPECT_TRUE(Downloader(client, files, std::chrono::milliseconds(5)).download(kUrl, kPath));
    EXPECT_EQ(client.limitsGiven.at(0).idle, std::chrono::milliseconds(5));
}

TEST_F(DownloaderTest, AFailedExchangeLeavesNoFile) {
    for (const int status : {0, 400, 404, 500, 599}) {
        files.files[kPath] = "of yesterday";
        client.answer = answerOf(status, u"http://b.example/");
        EXPECT_FALSE(download()) << status;
        expectNoFile();
    }
    EXPECT_EQ(client.urls.size(), 5U);
}

TEST_F(DownloaderTest, EveryStatusOtherThan200IsAFailure) {
    for (const int status : {100, 201, 203, 204, 206, 226, 299, 300, 304, 399}) {
        files.files[kPath] = "of yesterday";
        client.answer = answerOf(status);
        EXPECT_FALSE(download()) << status;
        expectNoFile();
    }
}

TEST_F(DownloaderTest, ALocationCountsOnlyInARedirect) {
    EXPECT_TRUE((client.answer = answerOf(200, u"http://b.example/"), download()));
    for (const int status : {201, 206, 304}) {
        client.answer = answerOf(status, u"http://b.example/");
        EXPECT_FALSE(download()) << status;
    }
    EXPECT_EQ(client.urls, std::vector<std::u16string>(4, kUrl));
}

TEST_F(DownloaderTest, TheBodyOfARedirectIsNotWritten) {
    for (const int status : {300, 301, 302, 303, 307, 308, 399}) {
        client.answersAt[kUrl] = {status, u"HTTPS://b.example/", "999", "gzip", "moved"};
        EXPECT_TRUE(download()) << status;
        EXPECT_EQ(client.urls.back(), u"HTTPS://b.example/");
        EXPECT_EQ(files.files[kPath], kBody);
    }
}

TEST_F(DownloaderTest, TwentyRedirectsAreFollowed) {
    for (const int redirects : {20, 21}) {
        client.urls.clear();
        client.answersAt.clear();
        std::u16string url = kUrl;
        for (int i = 0; i < redirects; ++i) {
            client.answersAt[url] = answerOf(302, url + u'x');
            url += u'x';
        }
        EXPECT_EQ(download(), redirects == 20);
        EXPECT_EQ(client.urls.size(), 21U);
    }
    expectNoFile();
}

TEST_F(DownloaderTest, OnlyHttpIsRequestedAndFollowed) {
    for (const auto* url : {u"", u"file:///etc/passwd", u"ftp://a.example/", u"http:/a.example", u"httpx://a.example/",
                            u" http://a.example/", u"data:,x", u"HTTP", u"/s"}) {
        files.files[kPath] = "of yesterday";
        EXPECT_FALSE(download(url)) << narrow(url);
        expectNoFile();
    }
    EXPECT_TRUE(client.urls.empty());
    client.answer = answerOf(302, u"file:///etc/passwd");
    EXPECT_FALSE(download());
    EXPECT_EQ(client.urls.size(), 1U);
    expectNoFile();
}

TEST_F(DownloaderTest, TheCaseOfTheSchemeDoesNotMatter) {
    EXPECT_TRUE(download(u"HTTP://a.example/"));
    EXPECT_TRUE(download(u"hTTps://a.example/"));
    EXPECT_FALSE(download(u"HTTP\x1A//a.example/"));
}

TEST_F(DownloaderTest, TheAnnouncedLengthIsChecked) {
    EXPECT_TRUE(downloadAnnounced("13"));
    EXPECT_TRUE(downloadAnnounced(" 13\t"));
    for (const char* length :
         {"12", "14", "0", "-13", "", "x", "13x", "13, 13", "0x0d", "18446744073709551616", "18446744073709551629"}) {
        files.files[kPath] = "of yesterday";
        EXPECT_FALSE(downloadAnnounced(length)) << length;
        expectNoFile();
    }
}

TEST_F(DownloaderTest, ACompressedBodyIsWrittenDecoded) {
    client.answer.body = std::string(
        "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x8b\x76\x09\xf2\x0d\x4e\xce"
        "\x48\x4d\x29\xcd\x49\x8d\x05\x00\x66\xed\xd1\x10\x0d\x00\x00\x00",
        33);
    client.answer.encoding = " gzip ";
    EXPECT_TRUE(downloadAnnounced("33"));
    EXPECT_EQ(files.files[kPath], kBody);
    client.answer.body.pop_back();
    EXPECT_FALSE(downloadAnnounced("32"));
    expectNoFile();
}

TEST_F(DownloaderTest, AFailureHasAReason) {
    const auto reason = [this] {
        download();
        return narrow(downloader.reason());
    };
    const std::map<HttpFault, std::string> reasons = {
        {HttpFault::HostNotFound, "the host was not found"},
        {HttpFault::NotConnected, "the host refuses the connection or cannot be reached"},
        {HttpFault::NotSecure, "no secure connection could be made"},
        {HttpFault::TimedOut, "the server does not answer"},
        {HttpFault::TooLong, "the answer is too long"},
        {HttpFault::Incomplete, "the answer is incomplete"},
        {HttpFault::Other, ""}};
    for (const auto& [fault, text] : reasons) {
        client.answer = failedAnswer(fault);
        EXPECT_EQ(reason(), text);
    }
    client.answer = answerOf(503);
    EXPECT_EQ(reason(), "the server answers with status 503");
    client.answer = answerOf(200);
    client.answer.announcedLength = "99";
    EXPECT_EQ(reason(), "the answer is incomplete");
    client.answer = answerOf(302, u"file:///etc/passwd");
    EXPECT_EQ(reason(), "only http and https addresses can be downloaded");
    client.answer = answerOf(200);
    EXPECT_EQ(reason(), "") << "after a download that succeeded";
}

TEST_F(DownloaderTest, AFileThatCannotBeWrittenIsRemoved) {
    files.failing.insert(kPath);
    EXPECT_FALSE(download());
    EXPECT_EQ(files.accesses, (std::vector<std::string>{"write " + narrow(kPath), "remove " + narrow(kPath)}));
}

}  // namespace
