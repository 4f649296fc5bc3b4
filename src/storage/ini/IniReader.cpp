#include "storage/ini/IniReader.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

#include "storage/text/Numbers.h"
#include "storage/text/UnitFinder.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/mTextUTF.h"

namespace {

// True if only blanks precede `at` in its line.
bool beginsLine(std::u16string_view text, std::size_t at) {
    while (at > 0 && (text[at - 1] == u' ' || text[at - 1] == u'\t')) {
        --at;
    }
    return at == 0 || text[at - 1] == u'\n' || text[at - 1] == u'\r';
}

// True if `line` is this key, in the same spelling, with a value.
bool startsWithKey(std::u16string_view line, std::u16string_view key) {
    return line.size() > key.size() && line[key.size()] == u'=' && std::equal(key.begin(), key.end(), line.begin());
}

}  // namespace

IniReader::IniReader(std::u16string text) : text_(std::make_shared<const std::u16string>(std::move(text))) {
    // Less than ten average records of a list, so that the index is rarely enlarged.
    constexpr std::size_t kUnitsOfAGroup = 480;
    const std::size_t mostGroups = text_->size() / kUnitsOfAGroup + 1;
    groups_.reserve(mostGroups);
    slots_.assign(std::bit_ceil(mostGroups + 1), 0);
}

IniReader::NumberedName IniReader::split(std::u16string_view name) {
    if (name.empty() || !isDigit(name.back())) {
        return {name, kNoDigit};
    }
    return {name.substr(0, name.size() - 1), static_cast<std::size_t>(name.back() - u'0')};
}

std::size_t IniReader::slotOf(std::u16string_view stem, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot] != 0) {
        const Group& group = groups_[slots_[slot] - 1];
        if (group.hash == hash && sameName(stemOf(group), stem)) {
            break;
        }
        slot = (slot + 1) & mask;
    }
    return slot;
}

IniReader::Group* IniReader::groupOf(std::u16string_view stem) {
    const bool isLast = lastGroup_ < groups_.size() && sameName(stemOf(groups_[lastGroup_]), stem);
    if (!isLast) {
        const std::uint32_t group = slots_[slotOf(stem, nameHash(stem))];
        if (group == 0) {
            return nullptr;
        }
        lastGroup_ = group - 1;
    }
    return &groups_[lastGroup_];
}

void IniReader::add(std::u16string_view header) {
    constexpr std::size_t kMostFilled = 3;  // of four slots
    const auto [stem, digit] = split(header);
    Group* group = groupOf(stem);
    if (group == nullptr) {
        const std::uint32_t hash = nameHash(stem);
        const auto start = static_cast<std::uint32_t>(stem.data() - text_->data());
        lastGroup_ = groups_.size();
        group = &groups_.emplace_back(Group{start, static_cast<std::uint32_t>(stem.size()), hash, {}});
        slots_[slotOf(stem, hash)] = static_cast<std::uint32_t>(groups_.size());
        if (groups_.size() * 4 > slots_.size() * kMostFilled) {
            enlargeIndex();
        }
    }
    if (group->closes[digit] == 0) {
        group->closes[digit] = static_cast<std::uint32_t>(indexed_);
    }
}

void IniReader::enlargeIndex() {
    slots_.assign(slots_.size() * 2, 0);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        slots_[slotOf(stemOf(groups_[i]), groups_[i].hash)] = static_cast<std::uint32_t>(i + 1);
    }
}

std::optional<std::u16string_view> IniReader::nextHeader() {
    const std::u16string_view text = *text_;
    const auto isOpen = [](char16_t c) { return c == u'['; };
    const auto mayEndName = [](char16_t c) { return c == u']' || c == u'\r' || c == u'\n'; };
    for (std::size_t at = findUnit(text, indexed_, isOpen); at < text.size(); at = findUnit(text, at + 1, isOpen)) {
        const std::size_t close = beginsLine(text, at) ? findUnit(text, at, mayEndName) : text.size();
        if (close < text.size() && text[close] == u']') {
            indexed_ = close;
            return trimmed(text.substr(at + 1, close - at - 1));
        }
    }
    indexed_ = text.size();
    return std::nullopt;
}

std::optional<std::size_t> IniReader::find(std::u16string_view name) {
    const auto [stem, digit] = split(name);
    const Group* const group = groupOf(stem);
    if (group != nullptr && group->closes[digit] != 0) {
        return group->closes[digit];
    }
    while (const auto header = nextHeader()) {
        add(*header);
        if (sameName(*header, name)) {
            return indexed_;
        }
    }
    return std::nullopt;
}

template <class Take>
void IniReader::readLines(std::u16string_view section, Take take) {
    const std::optional<std::size_t> close = find(section);
    if (!close) {
        return;
    }
    const std::u16string_view text = *text_;
    std::size_t at = findLineEnd(text, *close).next;
    while (at < text.size()) {
        const IniLineEnd lineEnd = findLineEnd(text, at);
        if (!take(text.substr(at, lineEnd.end - at), lineEnd)) {
            break;
        }
        at = lineEnd.next;
    }
    // No header precedes the line that was read last, so the search for the next one continues there.
    indexed_ = *close == indexed_ ? at : indexed_;
}

std::u16string_view IniReader::get(std::u16string_view section, std::u16string_view key) {
    std::u16string_view value;
    readLines(section, [&](std::u16string_view units, const IniLineEnd&) {
        const IniLine line = parseIniLine(units);
        const bool isKey = line.kind == IniLineKind::Key && sameName(line.name, key);
        value = isKey ? iniValue(line.value) : value;
        return !isKey && line.kind != IniLineKind::Section;
    });
    return value;
}

void IniReader::get(std::u16string_view section, std::span<const std::u16string_view> keys,
                    std::span<std::u16string_view> values) {
    std::fill(values.begin(), values.end(), std::u16string_view());
    // A value already found points into the text, even if it is empty.
    const auto isMissing = [values](std::size_t key) { return values[key].data() == nullptr; };
    std::size_t missing = keys.size();
    std::size_t expected = 0;
    const auto keep = [&](std::size_t key, std::u16string_view raw, const IniLineEnd& lineEnd) {
        values[key] = lineEnd.hasControls ? PtrToStrW(iniValue(raw)) : iniValue(raw);
        expected = key + 1;
        return --missing > 0;
    };
    readLines(section, [&](std::u16string_view units, const IniLineEnd& lineEnd) {
        if (expected < keys.size() && isMissing(expected) && startsWithKey(units, keys[expected])) {
            return keep(expected, units.substr(keys[expected].size() + 1), lineEnd);
        }
        const IniLine line = parseIniLine(units);
        for (std::size_t key = 0; line.kind == IniLineKind::Key && key < keys.size(); ++key) {
            if (isMissing(key) && sameName(line.name, keys[key])) {
                return keep(key, line.value, lineEnd);
            }
        }
        return line.kind != IniLineKind::Section;
    });
}

IniText decodeIni(std::string_view bytes, CodePages& codePages) {
    const std::string_view mark = TextFormatBom(TextFormat::Utf16Le);
    if (bytes.starts_with(mark)) {
        return {unitsOf(bytes.substr(mark.size()), ByteOrder::Little), true};
    }
    return {codePages.decode(bytes), false};
}

IniReader readIni(std::u16string_view path, Files& files, CodePages& codePages) {
    // The offsets of the index have 32 bits.
    if (files.size(path).value_or(0) > kLargestTextFile) {
        return {};
    }
    const auto bytes = files.read(path).bytes;
    return bytes && bytes->size() <= kLargestTextFile ? IniReader(decodeIni(*bytes, codePages).text) : IniReader();
}
