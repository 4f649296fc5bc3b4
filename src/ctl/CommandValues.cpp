#include "ctl/CommandValues.h"

#include <charconv>

#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

constexpr std::string_view kDigits = "0123456789";

bool isNumber(std::string_view word) {
    return word.find_first_of(kDigits) != word.npos && word.find_first_not_of("0123456789.") == word.npos &&
           std::count(word.begin(), word.end(), '.') <= 1;
}

}  // namespace

std::string enumeration(const std::vector<std::string_view>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? "" : (i + 1 == names.size() ? " and " : ", ");
        text += names[i];
    }
    return text;
}

std::optional<FrequencyRange> frequencyRangeOf(std::string_view word) {
    constexpr std::string_view kSign = "\xC2\xB1";
    constexpr std::string_view kAsciiSign = "+-";
    std::size_t sign = word.find(kSign);
    if (sign == word.npos) {
        sign = word.find(kAsciiSign);  // has the length of the other sign
    }
    const std::string_view middle = word.substr(0, sign);
    const std::string_view reach = sign == word.npos ? "0" : word.substr(sign + kSign.size());
    if (!isNumber(middle) || !isNumber(reach)) {
        return std::nullopt;
    }
    return FrequencyRange{leadingNumber(fromUtf8(middle)), leadingNumber(fromUtf8(reach))};
}

std::optional<int> firstOf(std::string_view word) {
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool isWhole = error == std::errc() && end == word.data() + word.size();
    return isWhole && number >= 1 && number <= kMaxRecords ? std::optional(number) : std::nullopt;
}

std::string checkFrequency(const std::string& word) {
    return frequencyRangeOf(word) ? "" : "\"" + word + "\" is no frequency in kHz, such as 7325 or 7325+-5";
}

std::string checkTime(const std::string& word) {
    const bool isTime =
        word.size() == 4 && word.find_first_not_of(kDigits) == word.npos && word < "2400" && word.substr(2) < "60";
    return isTime ? "" : "\"" + word + "\" is no time of day, such as 0630";
}

std::string checkFirst(const std::string& word) {
    return firstOf(word) ? "" : "\"" + word + "\" is no number from 1 to " + std::to_string(kMaxRecords);
}
