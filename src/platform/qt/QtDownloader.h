// HTTP by Qt Network.
#pragma once

#include <QNetworkAccessManager>
#include <chrono>

#include "platform/Downloader.h"
#include "platform/Files.h"

class QtDownloader : public Downloader {
public:
    // idleLimit: how long the server may stay silent.
    explicit QtDownloader(Files& files, std::chrono::milliseconds idleLimit = DownloadLimit::Idle)
        : files_(files), idleLimit_(idleLimit) {}

    bool download(std::u16string_view url, std::u16string_view path) override;
    // Nothing to remove: Qt keeps answers only in a cache that a program sets up, and none is.
    void forgetCached(std::u16string_view) override {}

private:
    Files& files_;
    std::chrono::milliseconds idleLimit_;
    QNetworkAccessManager network_;
};
