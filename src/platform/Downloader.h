// HTTP GET of a whole address into a file.
#pragma once

#include <string_view>

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
