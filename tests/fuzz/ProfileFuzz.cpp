// Compares the profile engine with a reader that scans the text line by line for each key, and its writer with its
// reader.
#include <set>
#include <utility>
#include <vector>

#include "fuzz/Fuzz.h"
#include "storage/ini/IniEditor.h"
#include "storage/ini/IniReader.h"
#include "storage/text/Utf8.h"

namespace {

using Lines = std::vector<std::u16string>;

bool isBlankCharacter(char16_t c) { return c == u' ' || c == u'\t'; }

std::u16string strip(std::u16string text) {
    while (!text.empty() && isBlankCharacter(text.front())) {
        text.erase(0, 1);
    }
    while (!text.empty() && isBlankCharacter(text.back())) {
        text.pop_back();
    }
    return text;
}

std::u16string lower(std::u16string text) {
    for (char16_t& c : text) {
        c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
    }
    return text;
}

Lines linesOf(const std::u16string& text) {
    Lines lines(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' || text[i] == u'\n') {
            i += text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n' ? 1 : 0;
            lines.emplace_back();
        } else {
            lines.back() += text[i];
        }
    }
    return lines;
}

bool isSection(const std::u16string& line) {
    return !line.empty() && line.front() == u'[' && line.find(u']') != line.npos;
}

std::u16string sectionName(const std::u16string& line) { return strip(line.substr(1, line.find(u']') - 1)); }

// Trimmed, without one pair of quotes, cut to the limit.
std::u16string shown(std::u16string value) {
    value = strip(std::move(value));
    if (value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return value.substr(0, 254);
}

std::u16string naiveGet(const Lines& lines, const std::u16string& section, const std::u16string& key) {
    bool inside = false;
    bool seen = false;
    for (const std::u16string& raw : lines) {
        std::u16string line = raw;
        while (!line.empty() && isBlankCharacter(line.front())) {
            line.erase(0, 1);
        }
        if (isSection(line)) {
            inside = !seen && lower(sectionName(line)) == lower(section);
            seen = seen || inside;
        } else if (inside && !line.empty() && line.front() != u';' && line.front() != u'[') {
            const std::size_t equals = line.find(u'=');
            if (equals != line.npos && equals > 0 && lower(strip(line.substr(0, equals))) == lower(key)) {
                return shown(line.substr(equals + 1));
            }
        }
    }
    return {};
}

using Names = std::set<std::pair<std::u16string, std::u16string>>;

Names namesIn(const Lines& lines) {
    Names names = {{u"Total", u"drmnumber"}, {u"", u""}};
    std::u16string section;
    for (const std::u16string& line : lines) {
        const std::u16string text = strip(line);
        if (isSection(text)) {
            section = sectionName(text);
        } else if (const std::size_t equals = text.find(u'='); equals != text.npos) {
            names.insert({section, strip(text.substr(0, equals))});
        }
        if (names.size() > 24) {
            break;
        }
    }
    return names;
}

bool canBeName(const std::u16string& name, bool isKey) {
    const std::u16string forbidden = isKey ? u"=[;\r\n" : u"]\r\n";
    return !name.empty() && strip(name) == name && name.find_first_of(forbidden) == name.npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = fromUtf8(bytesOf(data, size));
    const Lines lines = linesOf(text);
    IniReader profile(text);
    const Names names = namesIn(lines);
    for (const auto& [section, key] : names) {
        promise(profile.get(section, key) == naiveGet(lines, section, key), "the engine equals the naive reader");
    }

    // The first lines are section, key and value to write.
    std::u16string section = strip(lines[0]);
    std::u16string key = lines.size() > 1 ? strip(lines[1]) : u"";
    const std::u16string value = lines.size() > 2 ? lines[2] : u"";
    if (!canBeName(section, false) || !canBeName(key, true)) {
        return 0;
    }
    IniEditor edit(text);
    edit.set(section, key, value);
    const std::u16string written = edit.compose();
    IniReader after(written);
    promise(after.get(section, key) == shown(value), "a written value reads back trimmed");
    const Lines writtenLines = linesOf(written);
    for (const auto& [otherSection, otherKey] : names) {
        if (lower(otherSection) != lower(section) || lower(otherKey) != lower(key)) {
            promise(naiveGet(writtenLines, otherSection, otherKey) == naiveGet(lines, otherSection, otherKey),
                    "every other key keeps its value");
        }
    }
    return 0;
}
