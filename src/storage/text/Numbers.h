// Numbers in cells and files: how they are read, rounded and written, always with "." and never with an exponent.
#pragma once

#include <optional>
#include <string>
#include <string_view>

inline constexpr bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }
inline constexpr bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Optional blanks, an optional sign, digits with at most one "."; what follows is ignored. Without any digit 0;
// a number too large for a double gives the largest one of its sign.
double leadingNumber(std::u16string_view text);

// The shortest decimal text that reads back to the same double: 100, 98.5, 87.55. Not-a-number gives "0", an infinite
// value the text of the largest double.
std::u16string shortestDecimal(double value);

// The nearest integer, ties to even; nullopt when that lies outside -32768..32767 or the value is not a number.
std::optional<int> roundToInt16(double value);

// As roundToInt16, but clamped to the range; not-a-number gives 0.
int saturateToInt16(double value);

std::u16string decimal(int value);

// MHz in kHz without the product's binary noise: 64.4 gives 64400 and not 64400.00000000001, so that a station
// loaded and saved keeps its frequency.
double kilohertzOf(double megahertz);
