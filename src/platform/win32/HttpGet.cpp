#include "platform/win32/HttpGet.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/ProgramTitle.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WinHttp.h"

namespace {

constexpr DWORD kMostUrlUnits = 2'084;  // including the NUL

class HttpHandle {
public:
    HttpHandle(const WinHttp& http, HINTERNET handle) : http_(http), handle_(handle) {}
    ~HttpHandle() {
        if (handle_ != nullptr) {
            http_.closeHandle(handle_);
        }
    }
    HttpHandle(const HttpHandle&) = delete;
    HttpHandle& operator=(const HttpHandle&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }
    HINTERNET get() const { return handle_; }

private:
    const WinHttp& http_;
    HINTERNET handle_;
};

struct Address {
    std::wstring host;
    std::wstring resource;
    INTERNET_PORT port = 0;
    bool isSecure = false;
};

// User name and password of the URL are dropped.
std::optional<Address> addressOf(const WinHttp& http, const std::wstring& url) {
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = static_cast<DWORD>(-1);
    if (http.crackUrl(url.c_str(), 0, 0, &parts) == 0) {
        return std::nullopt;
    }
    std::wstring resource(parts.lpszUrlPath, parts.dwUrlPathLength);
    const std::wstring extra(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    resource += extra.substr(0, extra.find(L'#'));
    return Address{std::wstring(parts.lpszHostName, parts.dwHostNameLength), resource.empty() ? L"/" : resource,
                   parts.nPort, parts.nScheme == INTERNET_SCHEME_HTTPS};
}

void setNumber(const WinHttp& http, HINTERNET handle, DWORD option, DWORD value) {
    http.setOption(handle, option, &value, sizeof value);
}

void setLimits(const WinHttp& http, HINTERNET request) {
    setNumber(http, request, WINHTTP_OPTION_DISABLE_FEATURE,
              WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_AUTHENTICATION |
                  WINHTTP_DISABLE_KEEP_ALIVE);
    setNumber(http, request, WINHTTP_OPTION_AUTOLOGON_POLICY, WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH);
    setNumber(http, request, WINHTTP_OPTION_MAX_RESPONSE_HEADER_SIZE, kMostHeaderBytes);
    setNumber(http, request, WINHTTP_OPTION_MAX_HTTP_STATUS_CONTINUE, kMostInterimAnswers);
}

std::optional<std::wstring> header(const WinHttp& http, HINTERNET request, DWORD name) {
    std::array<wchar_t, kMostUrlUnits> text{};
    DWORD size = sizeof text;
    if (http.queryHeaders(request, name, WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &size, WINHTTP_NO_HEADER_INDEX) ==
        0) {
        return std::nullopt;
    }
    return std::wstring(text.data());
}

// Counted here because Wine ignores the option that limits them.
std::size_t headerBytes(const WinHttp& http, HINTERNET request) {
    DWORD size = 0;
    http.queryHeaders(request, WINHTTP_QUERY_RAW_HEADERS_CRLF, WINHTTP_HEADER_NAME_BY_INDEX, nullptr, &size,
                      WINHTTP_NO_HEADER_INDEX);
    return size / sizeof(wchar_t);
}

std::optional<std::string> narrowHeader(const WinHttp& http, HINTERNET request, DWORD name) {
    const auto wide = header(http, request, name);
    if (!wide) {
        return std::nullopt;
    }
    std::string text;
    for (const wchar_t unit : *wide) {
        text.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    }
    return text;
}

std::uint64_t lengthOf(const std::optional<std::string>& announced) {
    std::uint64_t length = 0;
    const char* const end = announced ? announced->data() + announced->size() : nullptr;
    const bool isNumber = announced && std::from_chars(announced->data(), end, length).ptr == end && length > 0;
    return isNumber ? length : HttpSigns::kUnknown;
}

// Empty if the response is no redirect.
std::wstring redirectTarget(const WinHttp& http, HINTERNET request, const std::wstring& from) {
    const auto location = header(http, request, WINHTTP_QUERY_LOCATION);
    std::array<wchar_t, kMostUrlUnits> target{};
    DWORD size = kMostUrlUnits;
    if (!location || FAILED(http.combineUrl(from.c_str(), location->c_str(), target.data(), &size, 0))) {
        return {};
    }
    return target.data();
}

// Call at once after the failure.
HttpFault lastFault() {
    switch (GetLastError()) {
        case ERROR_WINHTTP_NAME_NOT_RESOLVED:
            return HttpFault::HostNotFound;
        case ERROR_WINHTTP_CANNOT_CONNECT:
            return HttpFault::NotConnected;
        case ERROR_WINHTTP_TIMEOUT:
            return HttpFault::TimedOut;
        case ERROR_WINHTTP_SECURE_FAILURE:
            return HttpFault::NotSecure;
        case ERROR_WINHTTP_HEADER_COUNT_EXCEEDED:
        case ERROR_WINHTTP_HEADER_SIZE_OVERFLOW:
            return HttpFault::TooLong;
        case ERROR_WINHTTP_CONNECTION_ERROR:
        case ERROR_WINHTTP_INVALID_SERVER_RESPONSE:
            return HttpFault::Incomplete;
        default:
            return HttpFault::Other;
    }
}

// nullopt, and the reason in `fault`, if not the whole body could be read.
std::optional<std::string> readBody(const WinHttp& http, HINTERNET request, std::size_t mostBytes, HttpSigns& signs,
                                    HttpFault& fault) {
    std::string body;
    std::vector<char> part(std::size_t{16} * 1024);
    for (;;) {
        DWORD got = 0;
        if (http.readData(request, part.data(), static_cast<DWORD>(part.size()), &got) == 0) {
            fault = lastFault();
            return std::nullopt;
        }
        if (got == 0) {
            return body;
        }
        if (body.size() + got > mostBytes) {
            fault = HttpFault::TooLong;
            return std::nullopt;
        }
        body.append(part.data(), got);
        signs.received = body.size();
        ++signs.events;
    }
}

// Bodies of errors and redirects are not read, since they are not used.
HttpAnswer receive(const WinHttp& http, HINTERNET request, const std::wstring& url, const HttpLimits& limits,
                   HttpSigns& signs) {
    constexpr int kOk = 200;
    DWORD status = 0;
    DWORD size = sizeof status;
    if (http.queryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, WINHTTP_HEADER_NAME_BY_INDEX,
                          &status, &size, WINHTTP_NO_HEADER_INDEX) == 0) {
        return {};
    }
    if (headerBytes(http, request) > kMostHeaderBytes) {
        return failedAnswer(HttpFault::TooLong);
    }
    HttpAnswer answer;
    answer.announcedLength = narrowHeader(http, request, WINHTTP_QUERY_CONTENT_LENGTH);
    signs.announced = lengthOf(answer.announcedLength);
    if (status == kOk) {
        HttpFault fault = HttpFault::Other;
        auto body = readBody(http, request, limits.bytes, signs, fault);
        if (!body) {
            return failedAnswer(fault);
        }
        answer.body = std::move(*body);
    }
    answer.status = static_cast<int>(status);
    answer.location = fromWide(redirectTarget(http, request, url));
    answer.encoding = narrowHeader(http, request, WINHTTP_QUERY_CONTENT_ENCODING).value_or("");
    return answer;
}

}  // namespace

HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, HttpSigns& signs) {
    const WinHttp http;
    const auto address = http.isLoaded() ? addressOf(http, url) : std::nullopt;
    if (!address) {
        return {};
    }
    const HttpHandle session(
        http, http.open(toWide(kProgramTitle).c_str(), WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY, nullptr, nullptr, 0));
    const int idle = static_cast<int>(limits.idle.count());
    if (!session || http.setTimeouts(session.get(), idle, idle, idle, idle) == 0) {
        return {};
    }
    const HttpHandle connection(http, http.connect(session.get(), address->host.c_str(), address->port, 0));
    const HttpHandle request(
        http, connection
                  ? http.openRequest(connection.get(), L"GET", address->resource.c_str(), nullptr, nullptr, nullptr,
                                     WINHTTP_FLAG_REFRESH | (address->isSecure ? WINHTTP_FLAG_SECURE : 0))
                  : nullptr);
    if (!request) {
        return {};
    }
    setLimits(http, request.get());
    if (http.sendRequest(request.get(), nullptr, 0, nullptr, 0, 0, 0) == 0 ||
        http.receiveResponse(request.get(), nullptr) == 0) {
        return failedAnswer(lastFault());
    }
    ++signs.events;
    return receive(http, request.get(), url, limits, signs);
}
