#include "storage/ini/IniEditor.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

bool endsLine(std::u16string_view line) { return line.ends_with(u'\n') || line.ends_with(u'\r'); }

std::u16string_view withoutLineEnd(std::u16string_view line) { return line.substr(0, findLineEnd(line, 0).end); }

bool isBlankLine(std::u16string_view line) { return line.find_first_not_of(u" \t\r\n") == line.npos; }

bool isKey(std::u16string_view line, std::u16string_view key) {
    const IniLine parsed = parseIniLine(withoutLineEnd(line));
    return parsed.kind == IniLineKind::Key && sameName(parsed.name, key);
}

auto findKey(std::vector<std::u16string_view>& lines, std::u16string_view key) {
    return std::find_if(lines.begin() + 1, lines.end(), [key](std::u16string_view line) { return isKey(line, key); });
}

}  // namespace

void appendIniSection(std::u16string& text, std::u16string_view section) {
    text += u'[';
    text += section;
    text += u']';
    text += kLineEnd;
}

void appendIniKey(std::u16string& text, std::u16string_view key, std::u16string_view value) {
    text += key;
    text += u'=';
    const auto start = static_cast<std::ptrdiff_t>(text.size());
    text += value;
    const auto isEnd = [](char16_t c) { return c == u'\r' || c == u'\n'; };
    if (findUnit(value, 0, isEnd) < value.size()) {
        std::replace_if(text.begin() + start, text.end(), isEnd, u' ');
    }
    text += kLineEnd;
}

IniEditor::IniEditor(std::u16string text) : text_(std::move(text)), sections_(1) {
    const std::u16string_view all = text_;
    for (std::size_t start = 0; start < all.size();) {
        const IniLineEnd lineEnd = findLineEnd(all, start);
        const IniLine line = parseIniLine(all.substr(start, lineEnd.end - start));
        if (line.kind == IniLineKind::Section) {
            addSection(line.name);
        }
        sections_.back().lines.push_back(all.substr(start, lineEnd.next - start));
        start = lineEnd.next;
    }
}

void IniEditor::addSection(std::u16string_view name) {
    index_[name].push_back(sections_.size());
    sections_.push_back({name, {}, false});
}

std::u16string_view IniEditor::keep(std::u16string text) { return added_.emplace_back(std::move(text)); }

IniEditor::Section* IniEditor::find(std::u16string_view name) {
    const auto found = index_.find(name);
    return found == index_.end() || found->second.empty() ? nullptr : &sections_[found->second.front()];
}

void IniEditor::endLastLine(std::vector<std::u16string_view>& lines) {
    if (!lines.empty() && !endsLine(lines.back())) {
        lines.back() = keep(std::u16string(lines.back()).append(kLineEnd));
    }
}

IniEditor::Section& IniEditor::append(std::u16string_view name) {
    const auto last = std::find_if(sections_.rbegin(), sections_.rend(),
                                   [](const Section& section) { return !section.removed && !section.lines.empty(); });
    if (last != sections_.rend()) {
        endLastLine(last->lines);
    }
    std::u16string line;
    appendIniSection(line, name);
    const std::u16string_view kept = keep(std::move(line));
    addSection(kept.substr(1, name.size()));
    sections_.back().lines.push_back(kept);
    return sections_.back();
}

void IniEditor::set(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
    Section* found = find(section);
    std::vector<std::u16string_view>& lines = (found != nullptr ? *found : append(section)).lines;
    const auto old = findKey(lines, key);
    if (old != lines.end()) {
        const std::u16string_view body = withoutLineEnd(*old);
        std::u16string line;
        appendIniKey(line, parseIniLine(body).name, value);
        *old = keep(std::move(line));
        return;
    }
    auto place = lines.end();
    while (place != lines.begin() + 1 && isBlankLine(*(place - 1))) {
        --place;
    }
    std::u16string line;
    appendIniKey(line, key, value);
    if (place == lines.end()) {
        endLastLine(lines);
    }
    lines.insert(place, keep(std::move(line)));
}

void IniEditor::removeSection(std::u16string_view section) {
    const auto found = index_.find(section);
    if (found == index_.end() || found->second.empty()) {
        return;
    }
    // The views in the index stay valid: the editor keeps every text until its end.
    sections_[found->second.front()].removed = true;
    found->second.erase(found->second.begin());
}

std::u16string IniEditor::compose() const {
    std::size_t length = 0;
    const auto each = [this](auto&& take) {
        for (const Section& section : sections_) {
            for (std::size_t i = 0; !section.removed && i < section.lines.size(); ++i) {
                take(section.lines[i]);
            }
        }
    };
    each([&length](std::u16string_view line) { length += line.size(); });
    std::u16string text;
    text.reserve(length);
    each([&text](std::u16string_view line) { text += line; });
    return text;
}
