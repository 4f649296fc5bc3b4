// Compares the number reader with the C library on the numeric part of the text, and the writer with the reader.
#include <cmath>
#include <cstring>
#include <limits>

#include "fuzz/Fuzz.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

// Blanks, a sign, digits and one point, as ASCII.
std::string numberPart(std::u16string_view text) {
    std::size_t at = 0;
    while (at < text.size() && (text[at] == u' ' || text[at] == u'\t')) {
        ++at;
    }
    std::string part;
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
        part += static_cast<char>(text[at++]);
    }
    bool point = false;
    bool digit = false;
    for (; at < text.size(); ++at) {
        const char16_t c = text[at];
        if (c == u'.' && !point) {
            point = true;
        } else if (c >= u'0' && c <= u'9') {
            digit = true;
        } else {
            break;
        }
        part += static_cast<char>(c);
    }
    return digit ? part : "0";
}

double clamped(double value) {
    constexpr double kMost = std::numeric_limits<double>::max();
    return std::isinf(value) ? std::copysign(kMost, value) : value;
}

void checkWriting(double value) {
    const std::u16string written = shortestDecimal(value);
    promise(written.find_first_of(u"eE") == written.npos, "no exponent");
    if (std::isfinite(value)) {
        promise(leadingNumber(written) == value, "a written number reads back the same");
    }
    const auto rounded = roundToInt16(value);
    promise(!rounded || (std::abs(value - *rounded) <= 0.5 && *rounded >= -32768 && *rounded <= 32767),
            "rounding goes to the nearest");
    const int saturated = saturateToInt16(value);
    promise(!rounded || saturated == *rounded, "both ways of rounding agree within the range");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = fromUtf8(bytesOf(data, size));
    const double expected = clamped(std::strtod(numberPart(text).c_str(), nullptr));
    promise(leadingNumber(text) == expected, "the same number as the C library reads");
    checkWriting(expected);
    if (size >= sizeof(double)) {
        double any = 0;
        std::memcpy(&any, data, sizeof any);
        checkWriting(any);
    }
    return 0;
}
