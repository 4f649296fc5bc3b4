// The exchange runs on a thread of its own; the calling thread meanwhile keeps the window painted and takes no input.
#pragma once

#include "platform/HttpClient.h"

class QtHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
};
