// HTTP by Qt Network.
#pragma once

#include "platform/HttpClient.h"

class QtHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
    // Nothing to remove: Qt keeps answers only in a cache that a program sets up, and none is.
    void forgetCached(std::u16string_view) override {}
};
