// libcurl, loaded when first used: with its thirty dependencies it would add half to the start of the program.
#pragma once

#include <curl/curl.h>

class CurlLibrary {
public:
    // Loads the library once; it stays loaded until the process ends.
    CurlLibrary();

    bool isLoaded() const { return complete_; }

    decltype(&::curl_global_init) globalInit = nullptr;
    decltype(&::curl_easy_init) easyInit = nullptr;
    decltype(&::curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&::curl_easy_setopt) setOption = nullptr;
    decltype(&::curl_easy_getinfo) getInfo = nullptr;
    decltype(&::curl_easy_header) header = nullptr;
    decltype(&::curl_multi_init) multiInit = nullptr;
    decltype(&::curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&::curl_multi_add_handle) multiAdd = nullptr;
    decltype(&::curl_multi_remove_handle) multiRemove = nullptr;
    decltype(&::curl_multi_perform) multiPerform = nullptr;
    decltype(&::curl_multi_poll) multiPoll = nullptr;
    decltype(&::curl_multi_info_read) multiInfoRead = nullptr;
    decltype(&::curl_url) urlInit = nullptr;
    decltype(&::curl_url_cleanup) urlCleanup = nullptr;
    decltype(&::curl_url_set) urlSet = nullptr;

private:
    template <typename Function>
    void find(Function& function, const char* name);

    void* library_;
    bool complete_;
};
