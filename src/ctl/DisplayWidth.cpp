#include "ctl/DisplayWidth.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// In ascending order.
constexpr Range kCombining[] = {
    {0x0300, 0x036F},  {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2}, {0x05C4, 0x05C5},
    {0x0610, 0x061A},  {0x064B, 0x065F}, {0x0670, 0x0670}, {0x06D6, 0x06DC}, {0x06DF, 0x06E4}, {0x06E7, 0x06E8},
    {0x06EA, 0x06ED},  {0x0900, 0x0902}, {0x093A, 0x093A}, {0x093C, 0x093C}, {0x0941, 0x0948}, {0x094D, 0x094D},
    {0x0981, 0x0981},  {0x09BC, 0x09BC}, {0x09C1, 0x09C4}, {0x09CD, 0x09CD}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A},
    {0x0E47, 0x0E4E},  {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20F0},  {0x302A, 0x302D}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
    {0xE0100, 0xE01EF}};
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B}, {0x2329, 0x232A},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},
    {0x4E00, 0xA4CF}, {0xA960, 0xA97F}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

template <std::size_t N>
bool isIn(const Range (&ranges)[N], char32_t character) {
    const auto* const after = std::upper_bound(std::begin(ranges), std::end(ranges), character,
                                               [](char32_t c, const Range& range) { return c < range.first; });
    return after != std::begin(ranges) && character <= std::prev(after)->last;
}

std::size_t widthOf(char32_t character) {
    constexpr char32_t kFirstCombining = 0x0300;
    if (character < kFirstCombining) {
        return 1;
    }
    if (isIn(kCombining, character)) {
        return 0;
    }
    return isIn(kWide, character) ? 2 : 1;
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::size_t displayWidth(std::u16string_view text) {
    constexpr char32_t kFirstSupplementary = 0x10000;
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            character = kFirstSupplementary + ((character & 0x3FFU) << 10U) + (text[++i] & 0x3FFU);
        }
        width += widthOf(character);
    }
    return width;
}
