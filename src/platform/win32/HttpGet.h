// One HTTP GET request. Uses WinHTTP: URLDownloadToFile limits neither size nor idle time and hides the status; WinINet
// does not limit headers and answers authentication challenges.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "platform/HttpClient.h"

// What has come from the server so far; written by the thread that runs the exchange.
struct HttpSigns {
    static constexpr std::uint64_t kUnknown = UINT64_MAX;

    std::atomic<unsigned> events = 0;
    std::atomic<std::uint64_t> received = 0;          // bytes of the body
    std::atomic<std::uint64_t> announced = kUnknown;  // its length
};

// As HttpClient::get, but repaints nothing, and the idle limit works only on some versions of the system.
HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, HttpSigns& signs);
