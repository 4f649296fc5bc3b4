#include "fakes/FakeCodePages.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 80 to 9F of Windows-1252; its five holes are the C1 controls.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char16_t kReplacement = 0xFFFD;

unsigned at(std::string_view bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

struct Lead {
    std::size_t following = 0;  // continuation bytes; 0: not a lead byte
    unsigned bits = 0;          // of the lead byte itself
    unsigned low = 0x80;        // range of the first continuation byte
    unsigned high = 0xBF;
};

Lead leadOf(unsigned byte) {
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, byte & 0x1F};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, byte & 0x0F, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, byte & 0x07, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
    }
    return {};
}

void appendCodePoint(std::u16string& text, unsigned point) {
    if (point >= 0x10000) {
        text.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
        point = 0xDC00 + ((point - 0x10000) & 0x3FF);
    }
    text.push_back(static_cast<char16_t>(point));
}

// Decodes the sequence that starts with a byte from 80 on; returns the bytes used.
std::size_t decodeSequence(std::u16string& text, std::string_view bytes, std::size_t start) {
    Lead lead = leadOf(at(bytes, start));
    unsigned point = lead.bits;
    std::size_t used = 1;
    while (used <= lead.following && start + used < bytes.size()) {
        const unsigned byte = at(bytes, start + used);
        if (byte < lead.low || byte > lead.high) {
            break;
        }
        lead.low = 0x80;
        lead.high = 0xBF;
        point = (point << 6) | (byte & 0x3F);
        ++used;
    }
    const bool whole = lead.following > 0 && used == lead.following + 1;
    appendCodePoint(text, whole ? point : kReplacement);
    return used;
}

std::u16string decodeUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        if (at(bytes, i) < 0x80) {
            text.push_back(static_cast<char16_t>(at(bytes, i++)));
        } else {
            i += decodeSequence(text, bytes, i);
        }
    }
    return text;
}

void appendUtf8(std::string& bytes, unsigned point) {
    if (point < 0x80) {
        bytes.push_back(static_cast<char>(point));
        return;
    }
    const int following = point < 0x800 ? 1 : (point < 0x10000 ? 2 : 3);
    constexpr std::array<unsigned, 4> kMarks = {0, 0xC0, 0xE0, 0xF0};
    bytes.push_back(static_cast<char>(kMarks[static_cast<std::size_t>(following)] | (point >> (6 * following))));
    for (int i = following - 1; i >= 0; --i) {
        bytes.push_back(static_cast<char>(0x80 | ((point >> (6 * i)) & 0x3F)));
    }
}

bool isHigh(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::string encodeUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned unit = text[i];
        if (isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1])) {
            appendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00U));
        } else {
            appendUtf8(bytes, isHigh(unit) || isLow(unit) ? kReplacement : unit);
        }
    }
    return bytes;
}

std::u16string decodeAnsi(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned byte = at(bytes, i);
        text.push_back(byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : static_cast<char16_t>(byte));
    }
    return text;
}

char ansiByte(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), unit);
    return found == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

std::string encodeAnsi(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1]);
        bytes.push_back(ansiByte(text[i]));
        i += pair ? 1 : 0;
    }
    return bytes;
}

}  // namespace

std::u16string FakeCodePages::decode(CodePage page, std::string_view bytes) {
    return page == CodePage::Utf8 ? decodeUtf8(bytes) : decodeAnsi(bytes);
}

std::string FakeCodePages::encode(CodePage page, std::u16string_view text) {
    return page == CodePage::Utf8 ? encodeUtf8(text) : encodeAnsi(text);
}
