#include "platform/win32/WinHttp.h"

#include <initializer_list>

template <typename Function>
void WinHttp::find(Function& function, HMODULE library, const char* name) {
    if (library != nullptr) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }
    complete_ = complete_ && function != nullptr;
}

WinHttp::WinHttp()
    : http_(LoadLibraryExW(L"winhttp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)),
      shell_(LoadLibraryExW(L"shlwapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)),
      complete_(true) {
    find(open, http_, "WinHttpOpen");
    find(setTimeouts, http_, "WinHttpSetTimeouts");
    find(crackUrl, http_, "WinHttpCrackUrl");
    find(connect, http_, "WinHttpConnect");
    find(openRequest, http_, "WinHttpOpenRequest");
    find(setOption, http_, "WinHttpSetOption");
    find(sendRequest, http_, "WinHttpSendRequest");
    find(receiveResponse, http_, "WinHttpReceiveResponse");
    find(queryHeaders, http_, "WinHttpQueryHeaders");
    find(readData, http_, "WinHttpReadData");
    find(closeHandle, http_, "WinHttpCloseHandle");
    find(combineUrl, shell_, "UrlCombineW");
}

WinHttp::~WinHttp() {
    for (HMODULE library : {http_, shell_}) {
        if (library != nullptr) {
            FreeLibrary(library);
        }
    }
}
