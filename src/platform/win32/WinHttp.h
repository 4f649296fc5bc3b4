// The system's HTTP client, loaded when first needed so that the program's start does not pay for it.
#pragma once

#include <windows.h>
#include <winhttp.h>

class WinHttp {
public:
    WinHttp();
    ~WinHttp();
    WinHttp(const WinHttp&) = delete;
    WinHttp& operator=(const WinHttp&) = delete;

    bool isLoaded() const { return complete_; }

    decltype(&::WinHttpCrackUrl) crackUrl = nullptr;
    decltype(&::WinHttpOpen) open = nullptr;
    decltype(&::WinHttpSetTimeouts) setTimeouts = nullptr;
    decltype(&::WinHttpConnect) connect = nullptr;
    decltype(&::WinHttpOpenRequest) openRequest = nullptr;
    decltype(&::WinHttpSendRequest) sendRequest = nullptr;
    decltype(&::WinHttpReceiveResponse) receiveResponse = nullptr;
    decltype(&::WinHttpQueryHeaders) queryHeaders = nullptr;
    decltype(&::WinHttpReadData) readData = nullptr;
    decltype(&::WinHttpSetOption) setOption = nullptr;
    decltype(&::WinHttpCloseHandle) closeHandle = nullptr;

private:
    template <typename Function>
    void find(Function& function, const char* name);

    HMODULE library_;
    bool complete_;
};
