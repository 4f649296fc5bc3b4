#include "platform/win32/WinInet.h"

template <typename Function>
void WinInet::find(Function& function, const char* name) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    complete_ = complete_ && function != nullptr;
}

WinInet::WinInet()
    : library_(LoadLibraryExW(L"wininet.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)), complete_(library_ != nullptr) {
    if (library_ == nullptr) {
        return;
    }
    find(open, "InternetOpenW");
    find(openUrl, "InternetOpenUrlW");
    find(setOption, "InternetSetOptionW");
    find(queryInfo, "HttpQueryInfoW");
    find(readFile, "InternetReadFile");
    find(closeHandle, "InternetCloseHandle");
    find(combineUrl, "InternetCombineUrlW");
    find(deleteCacheEntry, "DeleteUrlCacheEntryW");
}

WinInet::~WinInet() {
    if (library_ != nullptr) {
        FreeLibrary(library_);
    }
}
