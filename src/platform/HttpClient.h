// One HTTP GET request.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

struct HttpLimits {
    std::chrono::milliseconds idle{};  // longest time without a byte from the server
    std::size_t bytes = 0;             // maximum length of the body, as sent
};

// Limits for every exchange: all header lines together, and the 1xx responses before the final one.
constexpr std::size_t kMostHeaderBytes = 65'536;
constexpr int kMostInterimAnswers = 10;

// Why there is no complete response.
enum class HttpFault { Other, HostNotFound, NotConnected, NotSecure, TimedOut, TooLong, Incomplete };

struct HttpAnswer {
    int status = 0;                              // 0: no response, or an aborted or incomplete one
    std::u16string location;                     // redirect target as an absolute URL; empty: no redirect
    std::optional<std::string> announcedLength;  // Content-Length, as sent
    std::string encoding;                        // Content-Encoding, as sent; empty: none
    std::string body;                            // as sent, still encoded
    HttpFault fault = HttpFault::Other;          // if the status is 0; as far as the system reports it
};

inline HttpAnswer failedAnswer(HttpFault fault) {
    HttpAnswer answer;
    answer.fault = fault;
    return answer;
}

// The body of a response so far.
struct HttpProgress {
    std::uint64_t received = 0;              // bytes, still encoded
    std::optional<std::uint64_t> announced;  // nullopt: unknown
};
using HttpObserver = std::function<void(const HttpProgress&)>;

class HttpClient {
public:
    virtual ~HttpClient() = default;
    // Blocks until the end; meanwhile the window repaints but takes no input. Follows no redirect, sends no credentials
    // and uses no cache. Aborts when a limit is exceeded or the program is closing. A body without a length is complete
    // only if the connection was closed cleanly, a chunked one only with its last chunk.
    // The body of an HTTP error may be missing.
    virtual HttpAnswer get(std::u16string_view url, const HttpLimits& limits) = 0;
};
