// Reads, rounds and writes numbers in cells and files, always with "." and without an exponent.
#pragma once

#include <optional>
#include <string>
#include <string_view>

constexpr bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }
constexpr bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Reads optional blanks, an optional sign, and digits with at most one "."; ignores the rest. 0 without digits; the
// largest double of the sign if the number is too large.
double leadingNumber(std::u16string_view text);

// The shortest decimal text that reads back as the same double: 100, 98.5, 87.55. NaN gives "0", infinity the text of
// the largest double.
std::u16string shortestDecimal(double value);
void appendShortestDecimal(std::u16string& text, double value);

// The nearest integer, ties to even; nullopt if the value is NaN or the result is outside -32768..32767.
std::optional<int> roundToInt16(double value);

// As roundToInt16, but clamped to the range; 0 for NaN.
int saturateToInt16(double value);

std::u16string decimal(int value);
void appendDecimal(std::u16string& text, int value);

// MHz in kHz without the rounding error of the product: 64.4 gives 64400, not 64400.00000000001, so that loading and
// saving keeps the frequency.
double kilohertzOf(double megahertz);
