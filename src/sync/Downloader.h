// Fetches a document of the web into a file.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/HttpClient.h"

class Downloader {
public:
    // idleLimit: how long a server may stay silent.
    Downloader(HttpClient& client, Files& files, std::chrono::milliseconds idleLimit = std::chrono::seconds(30))
        : client_(client), files_(files), idleLimit_(idleLimit) {}

    // Blocks until the end. Follows redirects to http and https only. False: a final status other than 200, a silent
    // server, more than 16 MiB as sent or unpacked, a body that is cut short or damaged, or a file that cannot be
    // written; then no file is left at the path.
    bool download(std::u16string_view url, std::u16string_view path);
    // The document itself; nullopt instead of false.
    std::optional<std::string> fetch(std::u16string url);

private:
    HttpClient& client_;
    Files& files_;
    std::chrono::milliseconds idleLimit_;
};
