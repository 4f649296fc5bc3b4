// One HTTP GET request. Uses libcurl because Qt Network limits neither headers nor the bytes received, and takes a
// reset connection for the end of a body.
#pragma once

#include <functional>
#include <string_view>

#include "platform/HttpClient.h"

// As HttpClient::get, but calls `whileWaiting` at least fifty times a second, and at the end, instead of repainting a
// window; false from it aborts.
HttpAnswer httpGet(std::u16string_view url, const HttpLimits& limits,
                   const std::function<bool(const HttpProgress&)>& whileWaiting);
