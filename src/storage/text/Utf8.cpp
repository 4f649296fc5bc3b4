#include "storage/text/Utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Most of a list file is ASCII, converted in blocks that compilers vectorise.
template <typename Unit>
using Block = std::array<Unit, 16>;

// The number of units before the first that is not ASCII. otherBits: the bits that are 0 in eight bytes of ASCII.
template <typename Unit>
std::size_t asciiLength(const Block<Unit>& block, std::uint64_t otherBits) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(Unit);
    const auto parts = std::bit_cast<std::array<std::uint64_t, sizeof block / sizeof(std::uint64_t)>>(block);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (const std::uint64_t other = parts[i] & otherBits; other != 0) {
            return (i * kUnits) + (static_cast<std::size_t>(std::countr_zero(other)) / (64 / kUnits));
        }
    }
    return block.size();
}

// Copies leading ASCII characters in whole blocks; returns their number. The target has room for as many units as
// `from`; units after the copied ones may be overwritten.
template <typename From, typename To>
std::size_t copyAscii(std::basic_string_view<From> from, To* to, std::uint64_t otherBits) {
    Block<From> block;
    Block<To> converted;
    std::size_t done = 0;
    while (from.size() - done >= block.size()) {
        std::memcpy(block.data(), from.data() + done, sizeof block);
        std::copy(block.begin(), block.end(), converted.begin());
        std::memcpy(to + done, converted.data(), sizeof converted);
        const std::size_t length = asciiLength(block, otherBits);
        done += length;
        if (length < block.size()) {
            break;
        }
    }
    return done;
}

// The continuation bytes after a lead byte: their number, and the range of the first, which excludes overlong forms,
// surrogates and code points above U+10FFFF.
struct Sequence {
    int more = 0;  // 0: not a lead byte
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    char32_t bits = 0;
};

Sequence sequenceOf(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {1, 0x80, 0xBF, lead & 0x1FU};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const auto low = static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80);
        const auto high = static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF);
        return {2, low, high, lead & 0x0FU};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const auto low = static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80);
        const auto high = static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF);
        return {3, low, high, lead & 0x07U};
    }
    return {};
}

// Decodes the character at `i`, which is not ASCII, and moves `i` behind it. U+FFFD for an ill-formed one.
char32_t takeCharacter(std::string_view bytes, std::size_t& i) {
    Sequence next = sequenceOf(static_cast<unsigned char>(bytes[i++]));
    if (next.more == 0) {
        return kReplacement;
    }
    for (; next.more > 0; --next.more, ++i) {
        const auto byte = static_cast<unsigned char>(i < bytes.size() ? bytes[i] : 0);
        if (byte < next.low || byte > next.high) {
            i += byte >= 0x80 && byte <= 0xBF ? 1 : 0;  // belongs to the ill-formed character, as on Windows
            return kReplacement;
        }
        next.bits = (next.bits << 6) | (byte & 0x3FU);
        next.low = 0x80;
        next.high = 0xBF;
    }
    return next.bits;
}

}  // namespace

std::u16string fromUtf8(std::string_view bytes) {
    // In pieces, so that the NULs that resize writes are still in the processor's cache when overwritten, and the
    // memory that the text does not need is never touched.
    constexpr std::size_t kPiece = 8192;
    constexpr std::size_t kMostUnitsOfCharacter = 2;
    std::u16string text;
    text.reserve(bytes.size());  // each byte yields at most one unit
    char16_t* end = text.data();
    std::size_t room = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        if (room < kMostUnitsOfCharacter) {
            const auto length = static_cast<std::size_t>(end - text.data());
            text.resize(std::min(length + kPiece, bytes.size()));
            end = text.data() + length;
            room = text.size() - length;
        }
        const char16_t* const start = end;
        const auto lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80) {
            *end++ = lead;
            const std::size_t run = copyAscii(bytes.substr(++i, room - 1), end, 0x8080808080808080U);
            i += run;
            end += run;
        } else {
            const char32_t c = takeCharacter(bytes, i);
            if (c < 0x10000) {
                *end++ = static_cast<char16_t>(c);
            } else {
                *end++ = static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
                *end++ = static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
            }
        }
        room -= static_cast<std::size_t>(end - start);
    }
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    appendUtf8(bytes, text);
    return bytes;
}

void appendUtf8(std::string& bytes, std::u16string_view text) {
    constexpr std::size_t kMostBytesOfUnit = 3;
    const std::size_t start = bytes.size();
    bytes.resize(start + text.size() * kMostBytesOfUnit);
    char* end = bytes.data() + start;
    const auto put = [&end](char32_t value) { *end++ = static_cast<char>(value); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c < 0x80) {
            put(c);
            const std::size_t run = copyAscii(text.substr(i + 1), end, 0xFF80FF80FF80FF80U);
            i += run;
            end += run;
            continue;
        }
        if ((c & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        } else if ((c & 0xF800) == 0xD800) {
            c = kReplacement;
        }
        if (c < 0x800) {
            put(0xC0 | (c >> 6));
        } else {
            if (c < 0x10000) {
                put(0xE0 | (c >> 12));
            } else {
                put(0xF0 | (c >> 18));
                put(0x80 | ((c >> 12) & 0x3F));
            }
            put(0x80 | ((c >> 6) & 0x3F));
        }
        put(0x80 | (c & 0x3F));
    }
    bytes.resize(static_cast<std::size_t>(end - bytes.data()));
}
