#include "platform/win32/HttpGet.h"

#include <array>

#include "platform/win32/WinHttp.h"

namespace {

constexpr int kTimeoutMilliseconds = 30'000;
constexpr std::size_t kMostBytes = 16U * 1024 * 1024;
constexpr DWORD kFirstErrorStatus = 400;

class InternetHandle {
public:
    InternetHandle(const WinHttp& http, HINTERNET handle) : http_(http), handle_(handle) {}
    ~InternetHandle() {
        if (handle_ != nullptr) {
            http_.closeHandle(handle_);
        }
    }
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }
    HINTERNET get() const { return handle_; }

private:
    const WinHttp& http_;
    HINTERNET handle_;
};

struct Address {
    std::wstring host;
    std::wstring pathAndQuery;
    INTERNET_PORT port = 0;
    bool secure = false;
};

std::optional<Address> split(const WinHttp& http, const std::wstring& url) {
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = static_cast<DWORD>(-1);
    parts.dwUrlPathLength = static_cast<DWORD>(-1);
    parts.dwExtraInfoLength = static_cast<DWORD>(-1);
    if (http.crackUrl(url.c_str(), 0, 0, &parts) == 0) {
        return std::nullopt;  // also every scheme but http and https
    }
    Address address;
    address.host.assign(parts.lpszHostName, parts.dwHostNameLength);
    address.pathAndQuery.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
    if (parts.dwExtraInfoLength > 0 && parts.lpszExtraInfo[0] == L'?') {
        address.pathAndQuery.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    }
    address.port = parts.nPort;
    address.secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
    return address;
}

std::optional<DWORD> numberHeader(const WinHttp& http, HINTERNET request, DWORD header) {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (http.queryHeaders(request, header | WINHTTP_QUERY_FLAG_NUMBER, WINHTTP_HEADER_NAME_BY_INDEX, &value, &size,
                          WINHTTP_NO_HEADER_INDEX) == 0) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::string> readBody(const WinHttp& http, HINTERNET request) {
    std::string body;
    std::array<char, 16 * 1024> part{};
    for (;;) {
        DWORD got = 0;
        if (http.readData(request, part.data(), static_cast<DWORD>(part.size()), &got) == 0) {
            return std::nullopt;
        }
        if (got == 0) {
            return body;
        }
        if (body.size() + got > kMostBytes) {
            return std::nullopt;
        }
        body.append(part.data(), got);
    }
}

std::optional<std::string> receive(const WinHttp& http, HINTERNET request) {
    if (http.sendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, 0) == 0 ||
        http.receiveResponse(request, nullptr) == 0) {
        return std::nullopt;
    }
    const auto status = numberHeader(http, request, WINHTTP_QUERY_STATUS_CODE);
    if (!status || *status >= kFirstErrorStatus) {
        return std::nullopt;
    }
    auto body = readBody(http, request);
    const auto announced = numberHeader(http, request, WINHTTP_QUERY_CONTENT_LENGTH);
    if (body && announced && *announced != body->size()) {
        return std::nullopt;  // cut short
    }
    return body;
}

}  // namespace

std::optional<std::string> httpGet(const std::wstring& url) {
    const WinHttp http;
    if (!http.isLoaded()) {
        return std::nullopt;
    }
    const auto address = split(http, url);
    if (!address) {
        return std::nullopt;
    }
    const InternetHandle session(http, http.open(L"Halcyon_K7", WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY,
                                                 WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session) {
        return std::nullopt;
    }
    http.setTimeouts(session.get(), kTimeoutMilliseconds, kTimeoutMilliseconds, kTimeoutMilliseconds,
                     kTimeoutMilliseconds);
    const InternetHandle connection(http, http.connect(session.get(), address->host.c_str(), address->port, 0));
    if (!connection) {
        return std::nullopt;
    }
    const InternetHandle request(
        http, http.openRequest(connection.get(), L"GET", address->pathAndQuery.c_str(), nullptr, WINHTTP_NO_REFERER,
                               WINHTTP_DEFAULT_ACCEPT_TYPES, address->secure ? WINHTTP_FLAG_SECURE : 0));
    if (!request) {
        return std::nullopt;
    }
    DWORD policy = WINHTTP_OPTION_REDIRECT_POLICY_ALWAYS;
    http.setOption(request.get(), WINHTTP_OPTION_REDIRECT_POLICY, &policy, sizeof policy);
    return receive(http, request.get());
}
