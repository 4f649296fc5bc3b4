// One HTTP GET of a whole body into memory. By WinHTTP: URLDownloadToFile limits neither size nor idle time and hides
// the status, and WinINet bounds no headers and answers challenges.
#pragma once

#include <atomic>
#include <string>

#include "platform/HttpClient.h"

// As HttpClient::get, but keeps nothing painted, and whether a silent server is abandoned after the idle limit depends
// on the system's version. Each sign of life of the server is counted in `signs`.
HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, std::atomic<unsigned>& signs);
