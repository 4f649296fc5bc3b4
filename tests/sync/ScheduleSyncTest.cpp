#include <gtest/gtest.h>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "storage/stations/RowStore.h"
#include "storage/text/Utf8.h"
#include "sync/ScheduleSync.h"
#include "sync/ScheduleTexts.h"

namespace {

const std::u16string kTarget = u"/program/DRMSchedule.ini";
const std::u16string kConfig = u"/program/config.ini";
constexpr const char* kDownloading = "Downloading,Please wait...";
constexpr const char* kSynchronizing = "Synchronizing,Please wait...";
constexpr const char* kOldTotal = "Total Number Of DRM List: 2";
constexpr std::size_t kMostCharacters = 32'767;

class ScheduleSyncTest : public testing::Test {
protected:
    ScheduleSyncTest() {
        drmLV.appendRow({u"old 1", u"6095", u"06:00-07:00", u"Asia"});
        drmLV.appendRow({u"old 2", u"6095", u"06:00-07:00", u"Asia"});
        view.calls.clear();
    }

    void serve(const std::u16string& schedule) { httpClient.answer.body = codePages.encode(schedule); }
    void sync(std::u16string message) {
        box.expect({std::move(message)});
        command.SyncDrmSchedule();
        EXPECT_TRUE(box.allShown());
    }
    std::vector<std::string> statusHistory() const {
        std::vector<std::string> history;
        for (const std::u16string& text : statusBar.history) {
            history.push_back(narrow(text));
        }
        return history;
    }
    void expectListUnchanged() {
        ASSERT_EQ(drmLV.rowCount(), 2);
        EXPECT_EQ(drmLV.text(1, 1), u"old 1");
        EXPECT_TRUE(view.calls.empty());
    }
    void expectFetched(std::u16string_view url) {
        ASSERT_EQ(httpClient.urls.size(), 1U);
        EXPECT_EQ(narrow(httpClient.urls[0]), narrow(url));
    }

    FakeGridView view;
    RowStore drmLV{view};
    RowStore amLV, fmLV, favLV;
    FakeFiles files;
    FakeCodePages codePages;
    FakeHttpClient httpClient;
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    Totals totals{tabs, statusBar, {&drmLV, &amLV, &fmLV, &favLV}};
    FakeMessageBox box;
    FakeWindowHook hook;
    mMsgBox messages{box, hook};
    ScheduleSync command{drmLV, {files, codePages}, httpClient, statusBar, {messages, totals}, u"/program/"};
};

TEST_F(ScheduleSyncTest, RebuildsTheListFromTheSchedule) {
    serve(scheduleOf(recordLines() + recordLines({.time = u"2300-2400", .programme = u"Late"})));
    sync(u"The number of new station is: 2");
    ASSERT_EQ(drmLV.rowCount(), 2);
    EXPECT_EQ(drmLV.text(1, 1), u"Radio");
    EXPECT_EQ(drmLV.text(2, 1), u"Late");
    EXPECT_EQ(drmLV.text(2, 3), u"23:00-24:00");
    EXPECT_EQ(statusHistory(), (std::vector<std::string>{kDownloading, kSynchronizing, kOldTotal}));
}

TEST_F(ScheduleSyncTest, TheMessagesAreShownWithTheCaptionHook) {
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    EXPECT_EQ(hook.issued, 1U);
    EXPECT_EQ(hook.live, 0U);
}

TEST_F(ScheduleSyncTest, The300RecordsOfAScheduleGive257Rows) {
    // Short lines, so that 300 records fit into the length that can be read.
    std::u16string records;
    for (int i = 0; i < 300; ++i) {
        records += u"StartStopTimeUTC=0600-0700\nx\nFrequency=5955\nTarget=E\nx\nProgramme=R\nx\nx\nx\n";
    }
    serve(scheduleOf(records));
    ASSERT_LT(httpClient.answer.body.size(), kMostCharacters);
    sync(u"The number of new station is: 257");
    EXPECT_EQ(drmLV.rowCount(), 257);
    EXPECT_EQ(narrow(statusBar.message), "Total Number Of DRM List: 257");
}

TEST_F(ScheduleSyncTest, TheSameRecordTwiceGivesTwoRowsAlsoWhenItWasListedBefore) {
    const RecordTexts listed{.frequency = u"6095", .target = u"Asia"};
    serve(scheduleOf(recordLines(listed) + recordLines(listed)));
    sync(u"The number of new station is: 2");
    EXPECT_EQ(drmLV.text(1, 1), u"Radio");
    EXPECT_EQ(drmLV.text(2, 1), u"Radio");
}

TEST_F(ScheduleSyncTest, TheGridIsResetOnce) {
    serve(scheduleOf(recordLines() + recordLines() + recordLines()));
    sync(u"The number of new station is: 3");
    EXPECT_EQ(view.calls, (std::vector<std::string>{"beforeReset", "afterReset"}));
}

TEST_F(ScheduleSyncTest, AScheduleWithoutAValidRecordEmptiesTheList) {
    serve(scheduleOf(recordLines({.time = u"0700-0600"})));
    sync(u"No new station");
    EXPECT_EQ(drmLV.rowCount(), 0);
    EXPECT_EQ(narrow(statusBar.message), "Total Number Of DRM List: 0");
}

TEST_F(ScheduleSyncTest, AFailedDownloadLeavesTheListAndReadsNothing) {
    httpClient.answer.status = 404;
    sync(u"Download failed,Please check the network");
    expectListUnchanged();
    EXPECT_EQ(statusHistory(), (std::vector<std::string>{kDownloading, kOldTotal}));
}

TEST_F(ScheduleSyncTest, AVanishedDownloadIsAFailure) {
    files.vanishing.insert(kTarget);
    serve(scheduleOf(recordLines()));
    sync(u"Download failed,Please check the network");
    expectListUnchanged();
    EXPECT_EQ(statusHistory(), (std::vector<std::string>{kDownloading, kOldTotal}));
    EXPECT_EQ(files.accesses, (std::vector<std::string>{"read /program/config.ini", "write /program/DRMSchedule.ini"}));
}

TEST_F(ScheduleSyncTest, OnlyTheStartOfAHugeConfigIsRead) {
    constexpr std::size_t kMostBytes = 65'536;
    files.files[kConfig] = "http://example.org/s\n" + std::string(10 * kMostBytes, 'x');
    httpClient.answer.status = 404;
    sync(u"Download failed,Please check the network");
    expectFetched(u"http://example.org/s");
    EXPECT_EQ(files.bytesRead, kMostBytes);
}

TEST_F(ScheduleSyncTest, ATextThatIsNoScheduleIsRejected) {
    for (const char16_t* text : {u"", u"<html>Not found</html>\n", u"[drmschedule]\n", u"[DRMSchedule\n"}) {
        serve(text + recordLines());
        sync(u"Illegal file,sync failed");
        expectListUnchanged();
        EXPECT_EQ(narrow(statusBar.message), kOldTotal);
        EXPECT_FALSE(files.files.contains(kTarget));
    }
}

TEST_F(ScheduleSyncTest, TheMarkMayBeAnywhere) {
    serve(recordLines() + u"; see [DRMSchedule] above");
    sync(u"The number of new station is: 1");
}

TEST_F(ScheduleSyncTest, TheDownloadedFileIsDeletedAfterReading) {
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    EXPECT_FALSE(files.files.contains(kTarget));
    EXPECT_EQ(files.accesses,
              (std::vector<std::string>{"read /program/config.ini", "write /program/DRMSchedule.ini",
                                        "read /program/DRMSchedule.ini", "remove /program/DRMSchedule.ini"}));
}

TEST_F(ScheduleSyncTest, AFileThatCannotBeReadIsNoSchedule) {
    serve(scheduleOf(recordLines()));
    files.unreadable.insert(kTarget);
    sync(u"Illegal file,sync failed");
    expectListUnchanged();
}

TEST_F(ScheduleSyncTest, TheTextIsReadInTheAnsiCodePage) {
    httpClient.answer.body = codePages.encode(scheduleOf(recordLines({.programme = u"Café €"})));
    EXPECT_NE(httpClient.answer.body.find("Caf\xE9 \x80"), std::string::npos);
    sync(u"The number of new station is: 1");
    EXPECT_EQ(narrow(drmLV.text(1, 1)), "Café €");
}

TEST_F(ScheduleSyncTest, Utf8IsReadByteByByte) {
    httpClient.answer.body = toUtf8(scheduleOf(recordLines({.programme = u"Café"})));
    sync(u"The number of new station is: 1");
    EXPECT_EQ(narrow(drmLV.text(1, 1)), "CafÃ©");
}

TEST_F(ScheduleSyncTest, ATextOf32767CharactersIsRead) {
    std::u16string text = scheduleOf(recordLines());
    text.resize(kMostCharacters, u'x');
    serve(text);
    sync(u"The number of new station is: 1");
}

TEST_F(ScheduleSyncTest, ALongerScheduleOverflowsBeforeTheListIsEmptied) {
    std::u16string text = scheduleOf(recordLines());
    text.resize(kMostCharacters + 1, u'x');
    serve(text);
    sync(u"Overflow");
    expectListUnchanged();
    EXPECT_EQ(statusHistory(), (std::vector<std::string>{kDownloading, kSynchronizing}));
    EXPECT_FALSE(files.files.contains(kTarget));
}

TEST_F(ScheduleSyncTest, ALongTextThatIsNoScheduleIsIllegalAndNotTooLong) {
    serve(std::u16string(kMostCharacters + 1, u'x'));
    sync(u"Illegal file,sync failed");
    EXPECT_EQ(narrow(statusBar.message), kOldTotal);
}

TEST_F(ScheduleSyncTest, TheBuiltInAddressIsFetchedIntoTheProgramFolder) {
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    expectFetched(builtInScheduleUrl());
    EXPECT_EQ(files.accesses[1], "write " + narrow(kTarget));
}

TEST_F(ScheduleSyncTest, TheBuiltInAddressHasAHostPathAndQuery) {
    const std::string url = narrow(builtInScheduleUrl());
    const std::string path = "/cgi-bin/dbgate.pl?htx=/drmdx/scheduleini2";
    EXPECT_EQ(url.find("http://"), 0U);
    ASSERT_GT(url.size(), path.size() + 7);
    EXPECT_EQ(url.substr(url.size() - path.size()), path);
    EXPECT_EQ(url.substr(7, url.size() - path.size() - 7).find('/'), std::string::npos);
}

struct ConfigCase {
    std::string content;
    const char16_t* url;  // empty: the built-in one
};

class ScheduleSyncTestConfig : public ScheduleSyncTest, public testing::WithParamInterface<ConfigCase> {};

TEST_P(ScheduleSyncTestConfig, FirstLineReplacesTheAddressWhenItBeginsWithHttp) {
    files.files[kConfig] = GetParam().content;
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    const std::u16string_view given = GetParam().url;
    expectFetched(given.empty() ? builtInScheduleUrl() : given);
    EXPECT_EQ(files.files[kConfig], GetParam().content);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ScheduleSyncTestConfig,
    testing::Values(ConfigCase{"http://a.example/s", u"http://a.example/s"},
                    ConfigCase{"http://a.example/s\r\nhttp://b.example/", u"http://a.example/s"},
                    ConfigCase{"http://a.example/s\nrest", u"http://a.example/s"},
                    ConfigCase{"http://a.example/s\rrest", u"http://a.example/s"}, ConfigCase{"http://", u"http://"},
                    ConfigCase{"http://a.example/\xE9 ", u"http://a.example/é"},
                    ConfigCase{"http://a.example/s \t \r\n", u"http://a.example/s"},
                    ConfigCase{"http://a.example/a b", u"http://a.example/a b"},
                    ConfigCase{"HTTP://a.example/s\r\n", u""}, ConfigCase{"Http://a.example/s", u""},
                    ConfigCase{"https://a.example/s", u""}, ConfigCase{" http://a.example/s", u""},
                    ConfigCase{"http:/", u""}, ConfigCase{"\r\nhttp://a.example/s", u""},
                    ConfigCase{"\nhttp://a.example/s", u""}, ConfigCase{"# comment\nhttp://a.example/s", u""},
                    ConfigCase{"\xEF\xBB\xBFhttp://a.example/s", u""}));

TEST_F(ScheduleSyncTest, AnAddressIsAtMost2083CharactersLong) {
    const std::string longest = "http://" + std::string(2'083 - 7, 'a');
    serve(scheduleOf(recordLines()));
    for (const auto* end : {"", "\n", " ", "a"}) {
        httpClient.urls.clear();
        files.files[kConfig] = longest + end;
        sync(u"The number of new station is: 1");
        const bool isAddress = std::string_view(end).find_first_of(" a") == std::string_view::npos;
        expectFetched(isAddress ? std::u16string(longest.begin(), longest.end())
                                : std::u16string(builtInScheduleUrl()));
    }
}

TEST_F(ScheduleSyncTest, AnEmptyConfigEndsTheCommandSilently) {
    files.files[kConfig] = "";
    command.SyncDrmSchedule();
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(httpClient.urls.empty());
    expectListUnchanged();
    EXPECT_EQ(statusHistory(), (std::vector<std::string>{kDownloading, "Total Number Of DRM List: 2"}));
}

TEST_F(ScheduleSyncTest, AConfigThatCannotBeReadIsIgnored) {
    files.files[kConfig] = "http://a.example/s";
    files.failing.insert(kConfig);
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    expectFetched(builtInScheduleUrl());
}

TEST_F(ScheduleSyncTest, ARecordBrokenByALowerCaseKeyIsDropped) {
    std::u16string broken = recordLines({.programme = u"Broken"});
    broken.replace(broken.find(u"Frequency"), 9, u"frequency");
    serve(scheduleOf(broken + recordLines()));
    sync(u"The number of new station is: 1");
    EXPECT_EQ(drmLV.text(1, 1), u"Radio");
}

TEST_F(ScheduleSyncTest, ALastRecordWithoutALineFeedIsNotAdded) {
    std::u16string text = scheduleOf(recordLines());
    text.pop_back();
    serve(text);
    sync(u"No new station");
}

TEST_F(ScheduleSyncTest, TheTotalShownIsThatOfTheTabShown) {
    tabs.tab = 3;
    serve(scheduleOf(recordLines()));
    sync(u"The number of new station is: 1");
    EXPECT_EQ(narrow(statusBar.message), "Total Number Of Favourite List: 0");
}

}  // namespace
