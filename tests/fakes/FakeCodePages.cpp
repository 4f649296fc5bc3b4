#include "fakes/FakeCodePages.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 80 to 9F of Windows-1252; the five undefined ones map to C1 controls.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool isHigh(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

char ansiByte(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), unit);
    return found == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

}  // namespace

std::u16string FakeCodePages::decode(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const unsigned byte = static_cast<unsigned char>(c);
        text.push_back(byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : static_cast<char16_t>(byte));
    }
    return text;
}

std::string FakeCodePages::encode(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1]);
        bytes.push_back(ansiByte(text[i]));
        i += pair ? 1 : 0;
    }
    return bytes;
}
