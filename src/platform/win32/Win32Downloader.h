// The download runs on a thread of its own; the calling thread meanwhile keeps the window painted and throws
// keys and pointer away.
#pragma once

#include <chrono>

#include "platform/Downloader.h"
#include "platform/Files.h"

class Win32Downloader : public Downloader {
public:
    // idleLimit: the longest silence of a server.
    explicit Win32Downloader(Files& files, std::chrono::milliseconds idleLimit = DownloadLimit::Idle)
        : files_(files), idleLimit_(idleLimit) {}

    bool download(std::u16string_view url, std::u16string_view path) override;
    void forgetCached(std::u16string_view url) override;

private:
    Files& files_;
    std::chrono::milliseconds idleLimit_;
};
