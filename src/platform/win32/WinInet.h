// The system's HTTP client, loaded when first needed so that the program's start does not pay for it.
#pragma once

#include <windows.h>
#include <wininet.h>

class WinInet {
public:
    WinInet();
    ~WinInet();
    WinInet(const WinInet&) = delete;
    WinInet& operator=(const WinInet&) = delete;

    bool isLoaded() const { return complete_; }

    decltype(&::InternetOpenW) open = nullptr;
    decltype(&::InternetOpenUrlW) openUrl = nullptr;
    decltype(&::InternetSetOptionW) setOption = nullptr;
    decltype(&::HttpQueryInfoW) queryInfo = nullptr;
    decltype(&::InternetReadFile) readFile = nullptr;
    decltype(&::InternetCloseHandle) closeHandle = nullptr;
    decltype(&::InternetCombineUrlW) combineUrl = nullptr;
    decltype(&::DeleteUrlCacheEntryW) deleteCacheEntry = nullptr;

private:
    template <typename Function>
    void find(Function& function, const char* name);

    HMODULE library_;
    bool complete_;
};
