#include "platform/win32/HttpGet.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/Downloader.h"
#include "platform/win32/WinInet.h"

namespace {

// Redirects are followed here, as the system's own following is not limited to the web.
constexpr DWORD kFlags = INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                         INTERNET_FLAG_PRAGMA_NOCACHE | INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_UI;

class InternetHandle {
public:
    InternetHandle(const WinInet& net, HINTERNET handle) : net_(net), handle_(handle) {}
    ~InternetHandle() {
        if (handle_ != nullptr) {
            net_.closeHandle(handle_);
        }
    }
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }
    HINTERNET get() const { return handle_; }

private:
    const WinInet& net_;
    HINTERNET handle_;
};

bool isWebAddress(const std::wstring& url) {
    const auto startsWith = [&url](std::wstring_view scheme) {
        return CompareStringOrdinal(url.c_str(), static_cast<int>(std::min(url.size(), scheme.size())), scheme.data(),
                                    static_cast<int>(scheme.size()), TRUE) == CSTR_EQUAL;
    };
    return startsWith(L"http://") || startsWith(L"https://");
}

void setNumber(const WinInet& net, HINTERNET handle, DWORD option, DWORD value) {
    net.setOption(handle, option, &value, sizeof value);
}

std::optional<DWORD> numberHeader(const WinInet& net, HINTERNET request, DWORD header) {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (net.queryInfo(request, header | HTTP_QUERY_FLAG_NUMBER, &value, &size, nullptr) == 0) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::wstring> textHeader(const WinInet& net, HINTERNET request, DWORD header) {
    std::array<wchar_t, INTERNET_MAX_URL_LENGTH> text{};
    DWORD size = sizeof text;
    if (net.queryInfo(request, header, text.data(), &size, nullptr) == 0) {
        return std::nullopt;
    }
    return text.data();
}

std::optional<std::wstring> redirectTarget(const WinInet& net, HINTERNET request, const std::wstring& from) {
    const auto location = textHeader(net, request, HTTP_QUERY_LOCATION);
    std::array<wchar_t, INTERNET_MAX_URL_LENGTH> target{};
    auto size = static_cast<DWORD>(target.size());
    if (!location || net.combineUrl(from.c_str(), location->c_str(), target.data(), &size, 0) == 0) {
        return std::nullopt;
    }
    return target.data();
}

std::optional<std::string> readBody(const WinInet& net, HINTERNET request, std::atomic<unsigned>& signs) {
    std::string body;
    std::vector<char> part(std::size_t{16} * 1024);
    for (;;) {
        DWORD got = 0;
        if (net.readFile(request, part.data(), static_cast<DWORD>(part.size()), &got) == 0) {
            return std::nullopt;
        }
        if (got == 0) {
            return body;
        }
        if (body.size() + got > DownloadLimit::Bytes) {
            return std::nullopt;
        }
        body.append(part.data(), got);
        ++signs;
    }
}

std::optional<std::string> receive(const WinInet& net, HINTERNET request, std::atomic<unsigned>& signs) {
    const auto announced = numberHeader(net, request, HTTP_QUERY_CONTENT_LENGTH);
    const bool isEncoded = textHeader(net, request, HTTP_QUERY_CONTENT_ENCODING).has_value();
    auto body = readBody(net, request, signs);
    if (body && announced && !isEncoded && *announced != body->size()) {
        return std::nullopt;  // cut short
    }
    return body;
}

}  // namespace

std::optional<std::string> httpGet(const std::wstring& url, std::chrono::milliseconds idleLimit,
                                   std::atomic<unsigned>& signs) {
    const WinInet net;
    if (!net.isLoaded()) {
        return std::nullopt;
    }
    const InternetHandle session(net, net.open(L"Halcyon_K7", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    if (!session) {
        return std::nullopt;
    }
    for (const DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                               INTERNET_OPTION_RECEIVE_TIMEOUT, INTERNET_OPTION_DATA_RECEIVE_TIMEOUT}) {
        setNumber(net, session.get(), option, static_cast<DWORD>(idleLimit.count()));
    }
    setNumber(net, session.get(), INTERNET_OPTION_CONNECT_RETRIES, 1);
    setNumber(net, session.get(), INTERNET_OPTION_HTTP_DECODING, TRUE);

    std::wstring address = url;
    for (int i = 0; i <= DownloadLimit::Redirects && isWebAddress(address); ++i) {
        const InternetHandle request(net, net.openUrl(session.get(), address.c_str(), nullptr, 0, kFlags, 0));
        ++signs;
        const auto status = request ? numberHeader(net, request.get(), HTTP_QUERY_STATUS_CODE) : std::nullopt;
        if (!status || *status >= DownloadLimit::FirstErrorStatus) {
            return std::nullopt;
        }
        if (*status < DownloadLimit::FirstRedirectStatus) {
            return receive(net, request.get(), signs);
        }
        address = redirectTarget(net, request.get(), address).value_or(L"");
    }
    return std::nullopt;
}
