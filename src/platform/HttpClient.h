// One HTTP GET of one address.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

struct HttpLimits {
    std::chrono::milliseconds idle{};  // how long the server may stay silent
    std::size_t bytes = 0;             // of the longest body
};

struct HttpAnswer {
    int status = 0;                              // 0: no answer, or one given up or broken off
    std::u16string location;                     // where it redirects to, as a whole address; empty: nowhere
    std::optional<std::string> announcedLength;  // of the body as sent, as the server wrote it
    bool isEncoded = false;                      // sent otherwise than it is in `body`
    std::string body;
};

class HttpClient {
public:
    virtual ~HttpClient() = default;
    // Blocks until the end; the window repaints but takes no input meanwhile. Follows no redirect and answers from
    // no cache. An answer beyond a limit is given up, and so is one that the end of the program meets.
    // An error status may be told as 0.
    virtual HttpAnswer get(std::u16string_view url, const HttpLimits& limits) = 0;
    // Removes the system's cached copy of the address, where the system keeps one.
    virtual void forgetCached(std::u16string_view url) = 0;
};
