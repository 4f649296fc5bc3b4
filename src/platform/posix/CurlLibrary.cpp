#include "platform/posix/CurlLibrary.h"

#include <dlfcn.h>

template <typename Function>
void CurlLibrary::find(Function& function, const char* name) {
    function = reinterpret_cast<Function>(::dlsym(library_, name));
    complete_ = complete_ && function != nullptr;
}

CurlLibrary::CurlLibrary()
    : library_(::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)), complete_(library_ != nullptr) {
    if (library_ == nullptr) {
        return;
    }
    find(globalInit, "curl_global_init");
    find(easyInit, "curl_easy_init");
    find(easyCleanup, "curl_easy_cleanup");
    find(setOption, "curl_easy_setopt");
    find(getInfo, "curl_easy_getinfo");
    find(header, "curl_easy_header");
    find(multiInit, "curl_multi_init");
    find(multiCleanup, "curl_multi_cleanup");
    find(multiAdd, "curl_multi_add_handle");
    find(multiRemove, "curl_multi_remove_handle");
    find(multiPerform, "curl_multi_perform");
    find(multiPoll, "curl_multi_poll");
    find(multiInfoRead, "curl_multi_info_read");
    find(urlInit, "curl_url");
    find(urlCleanup, "curl_url_cleanup");
    find(urlSet, "curl_url_set");
    complete_ = complete_ && globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
}
