// One HTTP GET of a whole body into memory.
#pragma once

#include <optional>
#include <string>

// Blocks. nullopt on every failure that Downloader.h names.
std::optional<std::string> httpGet(const std::wstring& url);
