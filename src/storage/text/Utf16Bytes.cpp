#include "storage/text/Utf16Bytes.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace {

bool isNative(ByteOrder order) { return (std::endian::native == std::endian::little) == (order == ByteOrder::Little); }

char16_t swapped(char16_t unit) {
    const unsigned value = unit;
    return static_cast<char16_t>(((value << 8) | (value >> 8)) & 0xFFFF);
}

}  // namespace

void unitsOf(std::string_view bytes, ByteOrder order, char16_t* units) {
    const std::size_t count = bytes.size() / 2;
    if (count == 0) {
        return;
    }
    std::memcpy(units, bytes.data(), count * 2);
    if (!isNative(order)) {
        for (std::size_t i = 0; i < count; ++i) {
            units[i] = swapped(units[i]);
        }
    }
}

std::u16string unitsOf(std::string_view bytes, ByteOrder order) {
    // In pieces, so that the NULs that resize writes are still in the processor's cache when overwritten.
    constexpr std::size_t kPieceBytes = 16'384;
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (; bytes.size() > 1; bytes.remove_prefix(std::min(kPieceBytes, bytes.size()))) {
        const std::string_view piece = bytes.substr(0, kPieceBytes);
        const std::size_t start = text.size();
        text.resize(start + piece.size() / 2);
        unitsOf(piece, order, text.data() + start);
    }
    return text;
}

void appendBytes(std::string& bytes, std::u16string_view text, ByteOrder order) {
    const std::size_t start = bytes.size();
    bytes.resize(start + text.size() * 2);
    char* to = bytes.data() + start;
    if (isNative(order)) {
        if (!text.empty()) {
            std::memcpy(to, text.data(), text.size() * 2);
        }
        return;
    }
    for (const char16_t unit : text) {
        const char16_t other = swapped(unit);
        std::memcpy(to, &other, 2);
        to += 2;
    }
}
