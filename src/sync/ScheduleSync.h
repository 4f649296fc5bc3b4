// Rebuilds the DRM list from the broadcast schedule that a server publishes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Grid.h"
#include "platform/HttpClient.h"
#include "platform/StatusBar.h"
#include "sync/Downloader.h"

// Where the schedule is fetched from when "config.ini" names no address. The host is chosen when the program is built.
std::u16string_view builtInScheduleUrl();

class ScheduleSync {
public:
    // programFolder ends with its separator.
    ScheduleSync(Grid& drmLV, Files& files, CodePages& codePages, HttpClient& httpClient, StatusBar& statusBar,
                 Totals& totals, mMsgBox& messages, std::u16string programFolder)
        : drmLV_(drmLV),
          files_(files),
          codePages_(codePages),
          downloader_(httpClient, files),
          statusBar_(statusBar),
          totals_(totals),
          messages_(messages),
          programFolder_(std::move(programFolder)) {}

    // Called once the list has been rebuilt, before the user is told.
    void onRebuilt(std::function<void()> listener) { rebuilt_ = std::move(listener); }

    // Downloads, checks and reads the schedule; blocks until all is done. The list is emptied only once the
    // download has proved to be a schedule. Every outcome but an empty "config.ini" is shown in one message.
    void SyncDrmSchedule();
    // True while the server is waited for, when a backend may still pass events of the window on.
    bool isDownloading() const { return downloading_; }

private:
    // nullopt: "config.ini" is there, but empty.
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
