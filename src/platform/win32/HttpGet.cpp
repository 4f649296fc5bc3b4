#include "platform/win32/HttpGet.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "platform/win32/WideText.h"
#include "platform/win32/WinInet.h"

namespace {

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

// Empty: no redirect.
std::wstring redirectTarget(const WinInet& net, HINTERNET request, const std::wstring& from) {
    const auto location = textHeader(net, request, HTTP_QUERY_LOCATION);
    std::array<wchar_t, INTERNET_MAX_URL_LENGTH> target{};
    auto size = static_cast<DWORD>(target.size());
    if (!location || net.combineUrl(from.c_str(), location->c_str(), target.data(), &size, 0) == 0) {
        return {};
    }
    return target.data();
}

std::optional<std::string> narrowHeader(const WinInet& net, HINTERNET request, DWORD name) {
    const auto header = textHeader(net, request, name);
    if (!header) {
        return std::nullopt;
    }
    std::string text;
    for (const wchar_t unit : *header) {
        text.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    }
    return text;
}

std::optional<std::string> readBody(const WinInet& net, HINTERNET request, std::size_t mostBytes,
                                    std::atomic<unsigned>& signs) {
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
        if (body.size() + got > mostBytes) {
            return std::nullopt;
        }
        body.append(part.data(), got);
        ++signs;
    }
}

void setLimits(const WinInet& net, HINTERNET session, const HttpLimits& limits) {
    for (const DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                               INTERNET_OPTION_RECEIVE_TIMEOUT, INTERNET_OPTION_DATA_RECEIVE_TIMEOUT}) {
        setNumber(net, session, option, static_cast<DWORD>(limits.idle.count()));
    }
    setNumber(net, session, INTERNET_OPTION_CONNECT_RETRIES, 1);
}

}  // namespace

HttpAnswer httpGet(const std::wstring& url, const HttpLimits& limits, std::atomic<unsigned>& signs) {
    const WinInet net;
    if (!net.isLoaded()) {
        return {};
    }
    const InternetHandle session(net, net.open(L"Halcyon_K7", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    if (!session) {
        return {};
    }
    setLimits(net, session.get(), limits);
    const InternetHandle request(net, net.openUrl(session.get(), url.c_str(), nullptr, 0, kFlags, 0));
    ++signs;
    const auto status = request ? numberHeader(net, request.get(), HTTP_QUERY_STATUS_CODE) : std::nullopt;
    if (!status) {
        return {};
    }
    HttpAnswer answer;
    answer.location = fromWide(redirectTarget(net, request.get(), url));
    answer.announcedLength = narrowHeader(net, request.get(), HTTP_QUERY_CONTENT_LENGTH);
    answer.encoding = narrowHeader(net, request.get(), HTTP_QUERY_CONTENT_ENCODING).value_or("");
    auto body = readBody(net, request.get(), limits.bytes, signs);
    if (!body) {
        return {};
    }
    answer.status = static_cast<int>(*status);
    answer.body = std::move(*body);
    return answer;
}
