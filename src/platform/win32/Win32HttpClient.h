// Runs the exchange on a separate thread; the calling thread repaints the window and discards input meanwhile.
#pragma once

#include <utility>

#include "platform/HttpClient.h"

class Win32HttpClient : public HttpClient {
public:
    // `observer`, which may be empty, is called on the calling thread while waiting.
    explicit Win32HttpClient(HttpObserver observer = {}) : observer_(std::move(observer)) {}

    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;

private:
    HttpObserver observer_;
};
