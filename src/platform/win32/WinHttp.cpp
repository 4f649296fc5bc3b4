#include "platform/win32/WinHttp.h"

template <typename Function>
void WinHttp::find(Function& function, const char* name) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    complete_ = complete_ && function != nullptr;
}

WinHttp::WinHttp()
    : library_(LoadLibraryExW(L"winhttp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)), complete_(library_ != nullptr) {
    if (library_ == nullptr) {
        return;
    }
    find(crackUrl, "WinHttpCrackUrl");
    find(open, "WinHttpOpen");
    find(setTimeouts, "WinHttpSetTimeouts");
    find(connect, "WinHttpConnect");
    find(openRequest, "WinHttpOpenRequest");
    find(sendRequest, "WinHttpSendRequest");
    find(receiveResponse, "WinHttpReceiveResponse");
    find(queryHeaders, "WinHttpQueryHeaders");
    find(readData, "WinHttpReadData");
    find(setOption, "WinHttpSetOption");
    find(closeHandle, "WinHttpCloseHandle");
}

WinHttp::~WinHttp() {
    if (library_ != nullptr) {
        FreeLibrary(library_);
    }
}
