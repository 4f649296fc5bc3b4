#include "ctl/Messages.h"

#include <algorithm>
#include <cstddef>

#include "storage/text/Utf8.h"

namespace {

constexpr std::u16string_view kProgram = u"halcyon_k7ctl: ";

void writeLine(Console& console, std::u16string line) {
    line += u'\n';
    console.writeError(toUtf8(line));
}

bool isControl(char16_t unit) {
    constexpr char16_t kDelete = 0x7F;
    constexpr char16_t kLastC1 = 0x9F;
    constexpr char16_t kLineSeparator = 0x2028;
    constexpr char16_t kParagraphSeparator = 0x2029;
    return unit < u' ' || (unit >= kDelete && unit <= kLastC1) || unit == kLineSeparator || unit == kParagraphSeparator;
}

}  // namespace

void complain(Console& console, std::u16string_view message) {
    writeLine(console, std::u16string(kProgram) += printable(message));
}

void warn(Console& console, std::u16string_view message) { complain(console, u"warning: " + std::u16string(message)); }

Exit fileFault(Console& console, std::u16string_view path, std::u16string_view why) {
    complain(console, std::u16string(path) + u": " + std::u16string(why));
    return Exit::File;
}

Exit print(Console& console, std::string_view text, Exit result) {
    return console.write(text) ? result : fileFault(console, u"standard output", u"cannot be written");
}

std::u16string printable(std::u16string_view text) {
    std::u16string shown;
    appendPrintable(shown, text);
    return shown;
}

void appendPrintable(std::u16string& line, std::u16string_view text) {
    constexpr char16_t kReplacement = 0xFFFD;
    const auto start = static_cast<std::ptrdiff_t>(line.size());
    line += text;
    std::replace_if(line.begin() + start, line.end(), isControl, kReplacement);
}
