#include "sync/Downloader.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace {

constexpr std::size_t kMostBytes = 16'777'216;  // 16 MiB
constexpr int kMostRedirects = 20;
constexpr int kFirstRedirectStatus = 300;
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

// nullopt: no number, or one too large to have been sent.
std::optional<std::uint64_t> wholeNumber(std::string_view text) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

// An announced length counts the bytes as sent, so it can be held only against a body sent plain.
bool isWhole(const HttpAnswer& answer) {
    return answer.isEncoded || !answer.announcedLength ||
           wholeNumber(trimmed(*answer.announcedLength)) == answer.body.size();
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
    for (int redirects = 0; redirects <= kMostRedirects && isWebAddress(url); ++redirects) {
        HttpAnswer answer = client_.get(url, {idleLimit_, kMostBytes});
        if (answer.status == 0 || answer.status >= kFirstErrorStatus) {
            return std::nullopt;
        }
        if (answer.status < kFirstRedirectStatus || answer.location.empty()) {
            return isWhole(answer) ? std::optional(std::move(answer.body)) : std::nullopt;
        }
        url = std::move(answer.location);
    }
    return std::nullopt;
}
