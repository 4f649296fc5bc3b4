// Downloads a document by HTTP.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/HttpClient.h"

class Downloader {
public:
    // idleLimit: the longest time without a byte from the server.
    Downloader(HttpClient& client, Files& files, std::chrono::milliseconds idleLimit = std::chrono::seconds(30))
        : client_(client), files_(files), idleLimit_(idleLimit) {}

    // Downloads into a file; blocks until the end. Follows redirects to http and https only. False, and no file at the
    // path, on a final status other than 200, a timeout, more than 16 MiB as sent or decoded, a body that is truncated
    // or damaged, or a file that cannot be written.
    bool download(std::u16string_view url, std::u16string_view path);
    // The document itself, decoded; nullopt on the same failures.
    std::optional<std::string> fetch(std::u16string url);
    // Why the last download failed, in words; empty if unknown. A file that cannot be written does not count.
    std::u16string_view reason() const { return reason_; }

private:
    HttpClient& client_;
    Files& files_;
    std::chrono::milliseconds idleLimit_;
    std::u16string reason_;
};
