// One HTTP GET request. Uses WinHTTP: URLDownloadToFile limits neither size nor idle time and hides the status; WinINet
// does not limit headers and answers authentication challenges.
#pragma once

#include <atomic>
#include <string>

#include "platform/HttpClient.h"

// As HttpClient::get, but repaints nothing, and the idle limit works only on some versions of the system. `signs`
// counts the events from the server.
HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, std::atomic<unsigned>& signs);
