#include "platform/win32/WinHttp.h"

template <typename Function>
void WinHttp::find(Function& function, HMODULE library, const char* name) {
    if (library != nullptr) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }
    complete_ = complete_ && function != nullptr;
}

WinHttp::WinHttp() {
    HMODULE http = LoadLibraryExW(L"winhttp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    HMODULE shell = LoadLibraryExW(L"shlwapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    find(open, http, "WinHttpOpen");
    find(setTimeouts, http, "WinHttpSetTimeouts");
    find(crackUrl, http, "WinHttpCrackUrl");
    find(connect, http, "WinHttpConnect");
    find(openRequest, http, "WinHttpOpenRequest");
    find(setOption, http, "WinHttpSetOption");
    find(sendRequest, http, "WinHttpSendRequest");
    find(receiveResponse, http, "WinHttpReceiveResponse");
    find(queryHeaders, http, "WinHttpQueryHeaders");
    find(readData, http, "WinHttpReadData");
    find(closeHandle, http, "WinHttpCloseHandle");
    find(combineUrl, shell, "UrlCombineW");
}
