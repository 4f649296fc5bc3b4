// One HTTP GET of a whole body into memory.
#pragma once

#include <atomic>
#include <chrono>
#include <optional>
#include <string>

// Blocks. nullopt on every failure that Downloader.h names, but for a silent server: whether the system gives that
// up after `idleLimit` depends on its version. Each sign of life of the server is counted in `signs`.
std::optional<std::string> httpGet(const std::wstring& url, std::chrono::milliseconds idleLimit,
                                   std::atomic<unsigned>& signs);
