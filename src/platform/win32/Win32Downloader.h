// The download runs on a thread of its own; the calling thread meanwhile keeps the window painted and throws
// keys and pointer away.
#pragma once

#include "platform/Downloader.h"
#include "platform/Files.h"

class Win32Downloader : public Downloader {
public:
    explicit Win32Downloader(Files& files) : files_(files) {}

    bool download(std::u16string_view url, std::u16string_view path) override;
    void forgetCached(std::u16string_view url) override;

private:
    Files& files_;
};
