#include "sync/Unpack.h"

#define ZLIB_CONST  // so that zlib takes input that it must not change
#include <zlib.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kPartBytes = 65'536;
constexpr int kGzip = 16 + MAX_WBITS;
constexpr int kZlib = MAX_WBITS;
constexpr int kRawDeflate = -MAX_WBITS;  // sent by some servers as "deflate"

class Inflater {
public:
    explicit Inflater(int format) : isReady_(inflateInit2(&stream_, format) == Z_OK) {}
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Appends one compressed stream from the front of `packed` to `text` and removes it from `packed`.
    bool inflateOne(std::string_view& packed, std::string& text, std::size_t mostBytes) {
        if (!isReady_ || inflateReset(&stream_) != Z_OK) {
            return false;
        }
        stream_.next_in = reinterpret_cast<const Bytef*>(packed.data());
        stream_.avail_in = static_cast<uInt>(packed.size());
        std::array<Bytef, kPartBytes> part;
        int result = Z_OK;
        while (result == Z_OK) {
            stream_.next_out = part.data();
            stream_.avail_out = kPartBytes;
            result = inflate(&stream_, Z_NO_FLUSH);
            const std::size_t made = kPartBytes - stream_.avail_out;
            if (text.size() + made > mostBytes) {
                return false;
            }
            text.append(reinterpret_cast<const char*>(part.data()), made);
        }
        packed.remove_prefix(packed.size() - stream_.avail_in);
        return result == Z_STREAM_END;
    }

private:
    z_stream stream_{};
    bool isReady_;
};

// A gzip file may consist of several members.
std::optional<std::string> inflated(std::string_view packed, int format, std::size_t mostBytes) {
    Inflater inflater(format);
    std::string text;
    do {
        if (!inflater.inflateOne(packed, text, mostBytes)) {
            return std::nullopt;
        }
    } while (!packed.empty() && format == kGzip);
    return packed.empty() ? std::optional(std::move(text)) : std::nullopt;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    return lower;
}

}  // namespace

std::optional<std::string> unpacked(std::string body, std::string_view encoding, std::size_t mostBytes) {
    const std::string name = lowerCase(encoding);
    if (name.empty() || name == "identity") {
        return body.size() > mostBytes ? std::nullopt : std::optional(std::move(body));
    }
    if (name == "gzip" || name == "x-gzip") {
        return inflated(body, kGzip, mostBytes);
    }
    if (name == "deflate") {
        auto text = inflated(body, kZlib, mostBytes);
        return text ? text : inflated(body, kRawDeflate, mostBytes);
    }
    return std::nullopt;
}
