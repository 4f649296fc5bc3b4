// One HTTP GET of one address.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

struct HttpLimits {
    std::chrono::milliseconds idle{};  // how long the server may stay silent
    std::size_t bytes = 0;             // of the longest body, as sent
};

// Limits that hold for every exchange: of all header lines together, and of the 1xx answers before the final one.
constexpr std::size_t kMostHeaderBytes = 65'536;
constexpr int kMostInterimAnswers = 10;

struct HttpAnswer {
    int status = 0;                              // 0: no answer, or one that was aborted or incomplete
    std::u16string location;                     // where it redirects to, as a whole address; empty: nowhere
    std::optional<std::string> announcedLength;  // of the body, as the server wrote it
    std::string encoding;                        // Content-Encoding as the server wrote it; empty: none
    std::string body;                            // as sent, still encoded
};

class HttpClient {
public:
    virtual ~HttpClient() = default;
    // Blocks until the end; the window repaints but takes no input meanwhile. Follows no redirect, sends no credentials
    // and answers from no cache. Aborts when a limit is exceeded or the program is closing. A body without an announced
    // length is complete only if the connection ended cleanly, one in chunks only with its last chunk.
    // May report an HTTP error as status 0.
    virtual HttpAnswer get(std::u16string_view url, const HttpLimits& limits) = 0;
};
