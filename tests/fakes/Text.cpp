#include "fakes/Text.h"

namespace {

void appendUtf8(std::string& out, char32_t c) {
    const auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3F));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

}  // namespace

std::string narrow(std::u16string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const bool pair =
            unit >= 0xD800 && unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (pair) {
            appendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00U));
        } else {
            appendUtf8(out, unit >= 0xD800 && unit < 0xE000 ? U'?' : unit);
        }
    }
    return out;
}
