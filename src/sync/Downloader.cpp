#include "sync/Downloader.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "storage/text/Numbers.h"
#include "sync/Unpack.h"

namespace {

constexpr std::size_t kMostBytes = 16'777'216;  // 16 MiB
constexpr int kMostRedirects = 20;
constexpr int kOk = 200;  // 206 (partial content) and 204 (no content) do not answer this request
constexpr int kFirstRedirectStatus = 300;
constexpr int kNotModified = 304;
constexpr int kFirstErrorStatus = 400;

bool isWebAddress(std::u16string_view url) {
    const auto startsWith = [url](std::u16string_view scheme) {
        return url.size() >= scheme.size() &&
               std::equal(scheme.begin(), scheme.end(), url.begin(), [](char16_t lower, char16_t unit) {
                   return unit == lower || (unit >= u'A' && unit <= u'Z' && unit + (u'a' - u'A') == lower);
               });
    };
    return startsWith(u"http://") || startsWith(u"https://");
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// nullopt: not a number, or too large to be a body that was sent.
std::optional<std::uint64_t> wholeNumber(std::string_view text) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

bool isRedirect(const HttpAnswer& answer) {
    return answer.status >= kFirstRedirectStatus && answer.status < kFirstErrorStatus &&
           answer.status != kNotModified && !answer.location.empty();
}

bool isWhole(const HttpAnswer& answer) {
    return !answer.announcedLength || wholeNumber(trimmed(*answer.announcedLength)) == answer.body.size();
}

std::u16string reasonOf(const HttpAnswer& answer) {
    if (answer.status == kOk) {
        return u"the answer is incomplete";
    }
    if (answer.status != 0) {
        return u"the server answers with status " + decimal(answer.status);
    }
    switch (answer.fault) {
        case HttpFault::HostNotFound:
            return u"the host was not found";
        case HttpFault::NotConnected:
            return u"the host refuses the connection or cannot be reached";
        case HttpFault::NotSecure:
            return u"no secure connection could be made";
        case HttpFault::TimedOut:
            return u"the server does not answer";
        case HttpFault::TooLong:
            return u"the answer is too long";
        case HttpFault::Incomplete:
            return u"the answer is incomplete";
        case HttpFault::Other:
            break;
    }
    return {};
}

}  // namespace

bool Downloader::download(std::u16string_view url, std::u16string_view path) {
    const std::optional<std::string> body = fetch(std::u16string(url));
    if (body && files_.write(path, *body, Flush::Now)) {
        return true;
    }
    files_.remove(path);
    return false;
}

std::optional<std::string> Downloader::fetch(std::u16string url) {
    reason_.clear();
    for (int redirects = 0; redirects <= kMostRedirects; ++redirects) {
        if (!isWebAddress(url)) {
            reason_ = u"only http and https addresses can be downloaded";
            return std::nullopt;
        }
        HttpAnswer answer = client_.get(url, {idleLimit_, kMostBytes});
        if (answer.status == kOk && isWhole(answer)) {
            auto text = unpacked(std::move(answer.body), trimmed(answer.encoding), kMostBytes);
            reason_ = text ? u"" : u"the answer cannot be decompressed, or is too long";
            return text;
        }
        if (!isRedirect(answer)) {
            reason_ = reasonOf(answer);
            return std::nullopt;
        }
        url = std::move(answer.location);
    }
    reason_ = u"too many redirects";
    return std::nullopt;
}
