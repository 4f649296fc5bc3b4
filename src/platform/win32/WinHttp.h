// The system's HTTP client, loaded when first used, so that the program starts faster.
#pragma once

#include <windows.h>
#include <shlwapi.h>
#include <winhttp.h>

class WinHttp {
public:
    // Loads it, unless an earlier object has. It stays loaded to the end of the process: threads of its own may still
    // run in it after the last handle is closed.
    WinHttp();

    bool isLoaded() const { return complete_; }

    decltype(&::WinHttpOpen) open = nullptr;
    decltype(&::WinHttpSetTimeouts) setTimeouts = nullptr;
    decltype(&::WinHttpCrackUrl) crackUrl = nullptr;
    decltype(&::WinHttpConnect) connect = nullptr;
    decltype(&::WinHttpOpenRequest) openRequest = nullptr;
    decltype(&::WinHttpSetOption) setOption = nullptr;
    decltype(&::WinHttpSendRequest) sendRequest = nullptr;
    decltype(&::WinHttpReceiveResponse) receiveResponse = nullptr;
    decltype(&::WinHttpQueryHeaders) queryHeaders = nullptr;
    decltype(&::WinHttpReadData) readData = nullptr;
    decltype(&::WinHttpCloseHandle) closeHandle = nullptr;
    decltype(&::UrlCombineW) combineUrl = nullptr;

private:
    template <typename Function>
    void find(Function& function, HMODULE library, const char* name);

    bool complete_ = true;
};
