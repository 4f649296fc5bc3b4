// Rebuilds the DRM list from a published broadcast schedule.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "messages/Feedback.h"
#include "platform/FileServices.h"
#include "platform/Grid.h"
#include "platform/HttpClient.h"
#include "platform/StatusBar.h"
#include "sync/Downloader.h"

// The address used if "config.ini" names none. The host is chosen at build time.
std::u16string_view builtInScheduleUrl();

class ScheduleSync {
public:
    // All references outlive this object; programFolder ends with its separator.
    ScheduleSync(Grid& drmLV, FileServices services, HttpClient& httpClient, StatusBar& statusBar, Feedback feedback,
                 std::u16string programFolder)
        : drmLV_(drmLV),
          files_(services.files),
          codePages_(services.codePages),
          downloader_(httpClient, services.files),
          statusBar_(statusBar),
          totals_(feedback.totals),
          messages_(feedback.messages),
          programFolder_(std::move(programFolder)) {}

    // The listener is called after the list has been rebuilt, before the message.
    void onRebuilt(std::function<void()> listener) { rebuilt_ = std::move(listener); }

    // Downloads and checks the schedule and rebuilds the list; blocks until the end. The list is cleared only after the
    // download has proved to be a schedule. Every outcome but an empty "config.ini" is reported in one message.
    void SyncDrmSchedule();
    // True during a download; window events may still arrive.
    bool isDownloading() const { return downloading_; }

private:
    // nullopt if "config.ini" exists but is empty.
    std::optional<std::u16string> scheduleUrl();
    bool download(std::u16string_view url);
    std::u16string takeDownloadedText();
    int rebuildList(std::u16string_view schedule);
    void finish(std::u16string_view message);
    std::u16string targetPath() const { return programFolder_ + u"DRMSchedule.ini"; }

    Grid& drmLV_;
    Files& files_;
    CodePages& codePages_;
    Downloader downloader_;
    StatusBar& statusBar_;
    Totals& totals_;
    mMsgBox& messages_;
    std::u16string programFolder_;
    std::function<void()> rebuilt_ = [] {};
    bool downloading_ = false;
};
