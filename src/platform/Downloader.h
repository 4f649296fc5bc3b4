// HTTP GET of a whole address into a file.
#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

// The bounds of a download, the same in every backend.
namespace DownloadLimit {
inline constexpr std::chrono::milliseconds Idle{30'000};  // how long a server may stay silent
inline constexpr std::size_t Bytes = 16'777'216;          // 16 MiB
inline constexpr int Redirects = 20;
inline constexpr int FirstRedirectStatus = 300;
inline constexpr int FirstErrorStatus = 400;
}  // namespace DownloadLimit

class Downloader {
public:
    virtual ~Downloader() = default;
    // Blocks until the end; the window repaints but takes no input meanwhile. Follows redirects to http and
    // https only. A status of 400 or more, 30 s without a byte, more than 16 MiB, a body cut short or a file
    // that cannot be written is false, and then no file is left at the path.
    virtual bool download(std::u16string_view url, std::u16string_view path) = 0;
    // Removes the system's cached copy of the address, where the system keeps one.
    virtual void forgetCached(std::u16string_view url) = 0;
};
