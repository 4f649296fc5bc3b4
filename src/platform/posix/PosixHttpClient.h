// The HTTP client of a program without a window: the calling thread only waits.
#pragma once

#include "platform/HttpClient.h"
#include "platform/posix/HttpGet.h"

class PosixHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override {
        return httpGet(url, limits, [] { return true; });
    }
};
