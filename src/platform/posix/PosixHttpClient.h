// The HTTP client of a program without a window: the calling thread only waits.
#pragma once

#include <utility>

#include "platform/HttpClient.h"
#include "platform/posix/HttpGet.h"

class PosixHttpClient : public HttpClient {
public:
    // `observer` is called while waiting.
    explicit PosixHttpClient(HttpObserver observer) : observer_(std::move(observer)) {}

    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override {
        return httpGet(url, limits, [this](const HttpProgress& progress) {
            observer_(progress);
            return true;
        });
    }

private:
    HttpObserver observer_;
};
