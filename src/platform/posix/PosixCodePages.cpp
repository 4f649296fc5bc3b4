#include "platform/posix/PosixCodePages.h"

#include <algorithm>
#include <array>

namespace {

// Windows-1252 from 80 to 9F; 81, 8D, 8F, 90 and 9D are C1 controls.
constexpr std::array<char16_t, 32> kAnsi80To9F{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::u16string PosixCodePages::decode(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.push_back(byte >= 0x80 && byte < 0xA0 ? kAnsi80To9F[byte - 0x80U] : byte);
    }
    return text;
}

std::string PosixCodePages::encode(std::u16string_view text) {
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
