// One HTTP GET of a whole body into memory. By libcurl, as Qt Network bounds neither headers nor what it receives,
// and takes a reset connection for the end of a body.
#pragma once

#include <functional>
#include <string_view>

#include "platform/HttpClient.h"

// As HttpClient::get, but calls `whileWaiting` at least fifty times a second instead of keeping a window painted;
// false from it aborts.
HttpAnswer httpGet(std::u16string_view url, const HttpLimits& limits, const std::function<bool()>& whileWaiting);
