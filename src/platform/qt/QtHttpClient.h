// HTTP by Qt Network, which is loaded with the first exchange.
#pragma once

#include "platform/HttpClient.h"
#include "platform/qt/HttpExchange.h"

class QtHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
    // Nothing to remove: Qt keeps answers only in a cache that a program sets up, and none is.
    void forgetCached(std::u16string_view) override {}

private:
    HttpExchange exchange_ = nullptr;  // not loaded yet
};
