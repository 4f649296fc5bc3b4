#include "platform/posix/PosixCodePages.h"

#include <algorithm>

#include "platform/Windows1252.h"

std::u16string PosixCodePages::decode(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.push_back(byte >= 0x80 && byte < 0xA0 ? kWindows1252From80[byte - 0x80U] : byte);
    }
    return text;
}

std::string PosixCodePages::encode(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const auto special = std::find(kWindows1252From80.begin(), kWindows1252From80.end(), unit);
        if (special != kWindows1252From80.end()) {
            bytes.push_back(static_cast<char>(0x80 + (special - kWindows1252From80.begin())));
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
