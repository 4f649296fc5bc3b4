// Runs the exchange on a separate thread; the calling thread repaints the window and takes no input meanwhile.
#pragma once

#include "platform/HttpClient.h"

class QtHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override;
};
