#include "ctl/schedules/Fields.h"

#include <algorithm>
#include <cmath>

#include "platform/Windows1252.h"
#include "storage/text/Numbers.h"

namespace {

bool isDigitByte(char byte) { return byte >= '0' && byte <= '9'; }

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

bool areDigits(std::string_view text, std::size_t count) {
    return text.size() == count && std::all_of(text.begin(), text.end(), isDigitByte);
}

bool isTimeOfDay(std::string_view text) {
    return areDigits(text, 4) && (text == "2400" || (text < "2400" && text.substr(2) < "60"));
}

std::optional<std::u16string> wholeKilohertz(std::string_view text) {
    text = withoutBlanks(text);
    const bool isNumber = !text.empty() && isDigitByte(text.front()) &&
                          text.find_first_not_of("0123456789.") == text.npos &&
                          std::count(text.begin(), text.end(), '.') <= 1;
    if (!isNumber) {
        return std::nullopt;
    }
    return shortestDecimal(std::round(leadingNumber(fromLatin1(text))));
}

int numberOf(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) {
        number = number * 10 + (digit - '0');
    }
    return number;
}

void setSpan(ScheduleEntry& entry, std::string_view start, std::string_view stop) {
    constexpr std::string_view kFirstMinute = "0000";
    constexpr std::string_view kMidnight = "2400";
    if (start == kMidnight) {
        start = kFirstMinute;
        entry.days = dayAfter(entry.days);
    }
    entry.start = fromLatin1(start);
    entry.stop = fromLatin1(stop == kFirstMinute ? kMidnight : stop);
}

std::string_view takeLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end);
    rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
    return line;
}

std::u16string fromLatin1(std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes) {
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    }
    return text;
}

std::u16string fromWindows1252(std::string_view bytes) {
    std::u16string text = fromLatin1(bytes);
    for (char16_t& unit : text) {
        unit = unit >= 0x80 && unit <= 0x9F ? kWindows1252From80[unit - 0x80U] : unit;
    }
    return text;
}
