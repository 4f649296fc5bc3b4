#include "storage/ini/IniReader.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

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

// True if a line that begins so is this key, in the same spelling, with a value. An empty key is none.
bool startsWithKey(std::u16string_view rest, std::u16string_view key) {
    return !key.empty() && rest.size() > key.size() && rest[key.size()] == u'=' &&
           std::equal(key.begin(), key.end(), rest.begin());
}

}  // namespace

IniReader::IniReader(SharedText text) : text_(std::move(text)) {
    // Less than ten average records of a list, so that the index is rarely enlarged.
    constexpr std::size_t kUnitsOfAGroup = 480;
    const std::size_t mostGroups = text_.view().size() / kUnitsOfAGroup + 1;
    groups_.reserve(mostGroups);
    slots_.assign(std::bit_ceil(mostGroups + 1), 0);
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

IniReader::Group* IniReader::otherGroupOf(std::u16string_view stem) {
    const std::uint32_t group = slots_[slotOf(stem, nameHash(stem))];
    if (group == 0) {
        return nullptr;
    }
    lastGroup_ = group - 1;
    return &groups_[lastGroup_];
}

std::uint32_t& IniReader::closeOf(std::u16string_view header) {
    constexpr std::size_t kMostFilled = 3;  // of four slots
    const auto [stem, digit] = split(header);
    if (Group* const group = groupOf(stem)) {
        return group->closes[digit];
    }
    const std::uint32_t hash = nameHash(stem);
    const auto start = static_cast<std::uint32_t>(stem.data() - text_.view().data());
    lastGroup_ = groups_.size();
    groups_.push_back({start, static_cast<std::uint32_t>(stem.size()), hash, {}});
    slots_[slotOf(stem, hash)] = static_cast<std::uint32_t>(groups_.size());
    if (groups_.size() * 4 > slots_.size() * kMostFilled) {
        enlargeIndex();
    }
    return groups_.back().closes[digit];
}

void IniReader::enlargeIndex() {
    slots_.assign(slots_.size() * 2, 0);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        slots_[slotOf(stemOf(groups_[i]), groups_[i].hash)] = static_cast<std::uint32_t>(i + 1);
    }
}

std::optional<std::size_t> IniReader::nextBracket(std::size_t from) const {
    const std::u16string_view text = text_.view();
    const auto isOpen = [](char16_t c) { return c == u'['; };
    std::size_t at = findUnit(text, from, isOpen);
    while (at < text.size() && !beginsLine(text, at)) {
        at = findUnit(text, at + 1, isOpen);
    }
    return at < text.size() ? std::optional(at) : std::nullopt;
}

std::optional<std::u16string_view> IniReader::nextHeader() {
    const std::u16string_view text = text_.view();
    const auto mayEndName = [](char16_t c) { return c == u']' || c == u'\r' || c == u'\n'; };
    for (auto open = nextBracket(indexed_); open; open = nextBracket(*open + 1)) {
        const std::size_t close = findUnit(text, *open, mayEndName);
        if (close < text.size() && text[close] == u']') {
            indexed_ = close;
            return trimmed(text.substr(*open + 1, close - *open - 1));
        }
    }
    indexed_ = text.size();
    return std::nullopt;
}

bool IniReader::isNext(std::u16string_view name) {
    const auto open = nextBracket(indexed_);
    if (!open) {
        return false;
    }
    const std::u16string_view header = text_.view().substr(*open + 1);
    if (header.size() <= name.size() || header[name.size()] != u']' ||
        !std::equal(name.begin(), name.end(), header.begin())) {
        return false;
    }
    indexed_ = *open + 1 + name.size();
    return true;
}

std::optional<std::size_t> IniReader::find(std::u16string_view name) {
    const auto [stem, digit] = split(name);
    Group* group = groupOf(stem);
    if (group != nullptr && group->closes[digit] != 0) {
        return group->closes[digit];
    }
    if (group != nullptr && digit != kNoDigit && isNext(name)) {
        group->closes[digit] = static_cast<std::uint32_t>(indexed_);
        return indexed_;
    }
    while (const auto header = nextHeader()) {
        std::uint32_t& close = closeOf(*header);
        close = close == 0 ? static_cast<std::uint32_t>(indexed_) : close;
        if (sameName(*header, name)) {
            return indexed_;
        }
    }
    return std::nullopt;
}

std::u16string_view IniReader::get(std::u16string_view section, std::u16string_view key) {
    const std::u16string_view text = text_.view();
    const std::optional<std::size_t> close = find(section);
    for (std::size_t at = close ? findLineEnd(text, *close + 1).next : text.size(); at < text.size();) {
        const IniLineEnd lineEnd = findLineEnd(text, at);
        const IniLine line = parseIniLine(text.substr(at, lineEnd.end - at));
        if (line.kind == IniLineKind::Section) {
            break;
        }
        if (line.kind == IniLineKind::Key && sameName(line.name, key)) {
            return iniValue(line.value);
        }
        at = lineEnd.next;
    }
    return {};
}

void IniReader::get(std::u16string_view section, std::span<const std::u16string_view> keys,
                    std::span<std::u16string_view> values) {
    std::fill(values.begin(), values.end(), std::u16string_view());
    const std::optional<std::size_t> close = find(section);
    if (!close) {
        return;
    }
    // A value already found points into the text, even if it is empty.
    const auto isMissing = [values](std::size_t key) { return values[key].data() == nullptr; };
    const std::u16string_view text = text_.view();
    std::size_t at = findLineEnd(text, *close + 1).next;
    std::size_t missing = keys.size();
    std::size_t expected = 0;
    const auto keep = [&](std::size_t key, std::u16string_view raw, const IniLineEnd& lineEnd) {
        values[key] = lineEnd.hasControls ? PtrToStrW(iniValue(raw)) : iniValue(raw);
        expected = key + 1;
        --missing;
        at = lineEnd.next;
    };
    while (missing > 0 && at < text.size()) {
        // Fast path for the expected key: its line end is searched in the value only.
        if (expected < keys.size() && isMissing(expected) && startsWithKey(text.substr(at), keys[expected])) {
            const std::size_t value = at + keys[expected].size() + 1;
            const IniLineEnd lineEnd = findLineEnd(text, value);
            keep(expected, text.substr(value, lineEnd.end - value), lineEnd);
            continue;
        }
        const IniLineEnd lineEnd = findLineEnd(text, at);
        const IniLine line = parseIniLine(text.substr(at, lineEnd.end - at));
        if (line.kind == IniLineKind::Section) {
            break;
        }
        at = lineEnd.next;
        for (std::size_t key = 0; line.kind == IniLineKind::Key && key < keys.size(); ++key) {
            if (isMissing(key) && sameName(line.name, keys[key])) {
                keep(key, line.value, lineEnd);
                break;
            }
        }
    }
    // No header precedes the line that was not read, so the search for the next one continues there.
    indexed_ = *close == indexed_ ? at : indexed_;
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
    const auto content = files.readUnits(path, kLargestTextFile);
    if (!content) {
        return {};
    }
    const std::string_view bytes = content->bytes();
    if (!bytes.starts_with(TextFormatBom(TextFormat::Utf16Le))) {
        return IniReader(codePages.decode(bytes));
    }
    static_assert(std::endian::native == std::endian::little);
    return IniReader(SharedText({content->units, content->units.get() + 1}, bytes.size() / sizeof(char16_t) - 1));
}
