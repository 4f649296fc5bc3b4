// HTTP by the POSIX client, which this one keeps the window painted for.
#pragma once

#include "platform/HttpClient.h"

class QtHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
    // Nothing to remove: no cache is kept.
    void forgetCached(std::u16string_view) override {}
};
