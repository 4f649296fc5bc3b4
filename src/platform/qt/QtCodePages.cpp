#include "platform/qt/QtCodePages.h"

#include <algorithm>
#include <array>

namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Windows-1252 from 80 to 9F; 81, 8D, 8F, 90 and 9D are C1 controls.
constexpr std::array<char16_t, 32> kAnsi80To9F{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::u16string decodeAnsi(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.push_back(byte >= 0x80 && byte < 0xA0 ? kAnsi80To9F[byte - 0x80U] : byte);
    }
    return text;
}

std::string encodeAnsi(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const auto special = std::find(kAnsi80To9F.begin(), kAnsi80To9F.end(), unit);
        if (special != kAnsi80To9F.end()) {
            bytes.push_back(static_cast<char>(0x80 + (special - kAnsi80To9F.begin())));
        } else if (unit < 0x80 || (unit >= 0xA0 && unit < 0x100)) {
            bytes.push_back(static_cast<char>(unit));
        } else {
            bytes.push_back('?');
            const bool pair = (unit & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
            i += pair ? 1 : 0;
        }
    }
    return bytes;
}

// What may follow a lead byte: how many more, and the range of the first of them.
struct Sequence {
    int more = 0;  // 0: no lead byte
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

void appendUtf16(std::u16string& text, char32_t c) {
    if (c < 0x10000) {
        text.push_back(static_cast<char16_t>(c));
    } else {
        text.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    }
}

std::u16string decodeUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        if (lead < 0x80) {
            text.push_back(lead);
            continue;
        }
        Sequence next = sequenceOf(lead);
        bool whole = next.more > 0;
        for (; next.more > 0; --next.more, ++i) {
            const auto byte = static_cast<unsigned char>(i < bytes.size() ? bytes[i] : 0);
            if (byte < next.low || byte > next.high) {
                whole = false;
                break;
            }
            next.bits = (next.bits << 6) | (byte & 0x3FU);
            next.low = 0x80;
            next.high = 0xBF;
        }
        appendUtf16(text, whole ? next.bits : kReplacement);
    }
    return text;
}

std::string encodeUtf8(std::u16string_view text) {
    constexpr std::size_t kMostBytesOfUnit = 3;
    std::string bytes(text.size() * kMostBytesOfUnit, '\0');
    char* end = bytes.data();
    const auto put = [&end](char32_t value) { *end++ = static_cast<char>(value); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c < 0x80) {
            put(c);
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
    return bytes;
}

}  // namespace

std::u16string QtCodePages::decode(CodePage page, std::string_view bytes) {
    return page == CodePage::Ansi ? decodeAnsi(bytes) : decodeUtf8(bytes);
}

std::string QtCodePages::encode(CodePage page, std::u16string_view text) {
    return page == CodePage::Ansi ? encodeAnsi(text) : encodeUtf8(text);
}
