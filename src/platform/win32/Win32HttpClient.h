// The exchange runs on a thread of its own; the calling thread meanwhile keeps the window painted and throws
// keys and pointer away.
#pragma once

#include "platform/HttpClient.h"

class Win32HttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
};
