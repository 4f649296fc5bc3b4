#include "storage/lists/ListContent.h"

#include <algorithm>

#include "storage/lists/ListFile.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t";

std::string_view withoutLeading(std::string_view text, std::string_view units) {
    text.remove_prefix(std::min(text.find_first_not_of(units), text.size()));
    return text;
}

std::string_view withoutMark(std::string_view bytes) {
    const std::string_view mark = TextFormatBom(TextFormat::Utf8);
    return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsWithName(std::string_view text, std::u16string_view name) {
    return text.size() >= name.size() && std::equal(name.begin(), name.end(), text.begin(), [](char16_t unit, char c) {
               return lower(static_cast<char>(unit)) == lower(c);
           });
}

// `section`: the text after the opening bracket.
bool isRecord(std::string_view section) {
    section = withoutLeading(section, kBlanks);
    return std::any_of(kListKinds.begin(), kListKinds.end(), [section](ListKind kind) {
        const std::u16string_view prefix = ListFile::sectionPrefix(kind);
        return startsWithName(section, prefix) && section.size() > prefix.size() && isDigit(section[prefix.size()]);
    });
}

// True if the text after the opening bracket of any section passes the test.
template <typename Test>
bool anySection(std::string_view bytes, Test test) {
    for (bytes = withoutMark(bytes); !bytes.empty();) {
        const std::string_view line = withoutLeading(bytes, kBlanks);
        if (line.starts_with('[') && test(line.substr(1))) {
            return true;
        }
        bytes.remove_prefix(std::min(bytes.find_first_of(kLineEnds), bytes.size()));
        bytes = withoutLeading(bytes, kLineEnds);
    }
    return false;
}

}  // namespace

bool ListContent::hasSection(std::string_view bytes) {
    return anySection(bytes, [](std::string_view) { return true; });
}

bool ListContent::hasRecord(std::string_view bytes) { return anySection(bytes, isRecord); }

bool ListContent::isWorthKeeping(std::string_view bytes) {
    constexpr std::string_view kNothing(" \t\r\n\0", 5);
    return hasSection(bytes) ? hasRecord(bytes) : !withoutLeading(withoutMark(bytes), kNothing).empty();
}
