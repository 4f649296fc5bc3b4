#include "storage/text/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInt16Min = -32768;
constexpr double kInt16Max = 32767;

// The characters of the number in the form that from_chars accepts: without blanks and "+".
std::string numberText(std::u16string_view text) {
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at])) {
        ++at;
    }
    std::string number;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        number.append(text[at] == u'-' ? 1 : 0, '-');
        ++at;
    }
    bool hasPoint = false;
    for (; at < text.size() && (isDigit(text[at]) || (text[at] == u'.' && !hasPoint)); ++at) {
        hasPoint = hasPoint || text[at] == u'.';
        number.push_back(static_cast<char>(text[at]));
    }
    return number;
}

double parse(std::string_view number, std::chars_format format) {
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value, format);
    if (error != std::errc::result_out_of_range) {
        return value;
    }
    // The number is too large or too close to zero; only the former has a digit other than 0 before the point.
    const std::size_t digit = number.find_first_of("123456789");
    const bool large = digit < number.find('.');
    return large ? (number.front() == '-' ? -kLargest : kLargest) : 0;
}

constexpr double kMostOfThreeDecimals = 1'000'000;

void appendThousandths(std::u16string& text, int thousandths) {
    std::array<char16_t, 12> units;
    auto first = units.end();
    int rest = thousandths;
    for (int place = 0; place < 3; ++place, rest /= 10) {
        if (rest % 10 > 0 || first != units.end()) {
            *--first = static_cast<char16_t>(u'0' + rest % 10);
        }
    }
    if (first != units.end()) {
        *--first = u'.';
    }
    do {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    text.append(first, units.end());
}

// Fast path for a text of a few digits with at most one point, as frequencies are; -1 for any other. The quotient of
// two exact numbers is the double nearest to the decimal.
double shortNumber(std::u16string_view text) {
    constexpr std::size_t kMostDigits = 9;
    if (text.empty() || text.size() > kMostDigits || text == u".") {
        return -1;
    }
    int value = 0;
    int divisor = 0;  // 0 before the point
    for (const char16_t unit : text) {
        if (unit == u'.' && divisor == 0) {
            divisor = 1;
            continue;
        }
        if (!isDigit(unit)) {
            return -1;
        }
        value = value * 10 + (unit - u'0');
        divisor *= 10;
    }
    return divisor > 1 ? static_cast<double>(value) / divisor : value;
}

}  // namespace

double leadingNumber(std::u16string_view text) {
    if (const double number = shortNumber(text); number >= 0) {
        return number;
    }
    return parse(numberText(text), std::chars_format::fixed);
}

void appendShortestDecimal(std::u16string& text, double value) {
    if (std::isnan(value) || value == 0) {
        text += u'0';
        return;
    }
    if (std::isinf(value)) {
        value = std::copysign(kLargest, value);
    }
    // Fast path for frequencies: if three decimals reproduce the value, no other text is shorter.
    if (value > 0 && value < kMostOfThreeDecimals) {
        // The product is then at most a rounding error away from a whole number: any fraction added finds it.
        constexpr double kFraction = 0.25;
        const int thousandths = static_cast<int>(value * 1000 + kFraction);
        if (thousandths / 1000.0 == value) {
            appendThousandths(text, thousandths);
            return;
        }
    }
    std::array<char, 800> digits;  // the smallest double has over 320 zeros after the point
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    text.append(digits.data(), result.ptr);
}

std::u16string shortestDecimal(double value) {
    std::u16string text;
    appendShortestDecimal(text, value);
    return text;
}

std::optional<int> roundToInt16(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= kInt16Min && rounded <= kInt16Max)) {
        return std::nullopt;
    }
    return static_cast<int>(rounded);
}

int saturateToInt16(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    const double rounded = std::nearbyint(value);
    return static_cast<int>(rounded < kInt16Min ? kInt16Min : (rounded > kInt16Max ? kInt16Max : rounded));
}

void appendDecimal(std::u16string& text, int value) {
    std::array<char16_t, 12> units;
    auto first = units.end();
    unsigned rest = value < 0 ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    if (value < 0) {
        *--first = u'-';
    }
    text.append(first, units.end());
}

std::u16string decimal(int value) {
    std::u16string text;
    appendDecimal(text, value);
    return text;
}

double kilohertzOf(double megahertz) {
    constexpr double kMostOfFewDigits = 1e9;
    const double product = megahertz * 1000;
    if (!std::isfinite(product)) {
        return product;
    }
    const double noise = std::abs(product) * std::numeric_limits<double>::epsilon();
    // Fast path for frequencies: a whole number of so few digits is what rounding to 15 digits gives.
    if (const double whole = std::nearbyint(product); std::abs(whole) < kMostOfFewDigits) {
        if (std::abs(whole - product) <= noise) {
            return whole;
        }
    }
    constexpr int kDigitsAfterFirst = 14;  // 15 significant digits always survive in a double
    std::array<char, 40> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), product, std::chars_format::scientific,
                                      kDigitsAfterFirst);
    const double rounded = parse({text.data(), result.ptr}, std::chars_format::scientific);
    return std::abs(rounded - product) <= noise ? rounded : product;
}
