// One HTTP GET of a whole body into memory. By the Internet functions, as URLDownloadToFile knows no limits of size
// and of idle time and leaves it to itself which answers of a server count as the file.
#pragma once

#include <atomic>
#include <string>

#include "platform/HttpClient.h"

// As HttpClient::get, but keeps nothing painted, and whether a silent server is given up after the idle limit depends
// on the system's version. Each sign of life of the server is counted in `signs`.
HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, std::atomic<unsigned>& signs);
