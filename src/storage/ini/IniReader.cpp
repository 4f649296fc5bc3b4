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

// The position of the first "]" from `at` on, or the end of the line if that comes first.
std::size_t endOfSectionName(std::u16string_view text, std::size_t at) {
    UnitFinder marks(text, at, [](char16_t c) { return c <= u'\r' || c == u']'; });
    std::size_t close = marks.next();
    while (close < text.size() && text[close] != u']' && text[close] != u'\r' && text[close] != u'\n') {
        close = marks.next();
    }
    return close;
}

}  // namespace

IniReader::IniReader(std::u16string text) : text_(std::make_shared<const std::u16string>(std::move(text))) {
    findSections();
    buildIndex();
}

// Brackets are rarer than lines, so most of the text is scanned only once, here.
void IniReader::findSections() {
    // Shorter than the average section of a list, so the vector rarely grows; growing would fragment the heap.
    constexpr std::size_t kShortSection = 48;
    const std::u16string_view text = *text_;
    sections_.reserve(text.size() / kShortSection);
    UnitFinder brackets(text, 0, [](char16_t c) { return c == u'['; });
    for (std::size_t at = brackets.next(); at < text.size(); at = brackets.next()) {
        if (!beginsLine(text, at)) {
            continue;
        }
        const std::size_t close = endOfSectionName(text, at);
        const IniLine line = parseIniLine(text.substr(at, close + 1 - at));
        if (line.kind == IniLineKind::Section) {
            sections_.push_back({static_cast<std::uint32_t>(line.name.data() - text.data()),
                                 static_cast<std::uint32_t>(line.name.size()), nameHash(line.name),
                                 static_cast<std::uint32_t>(close)});
        }
    }
}

void IniReader::buildIndex() {
    slots_.assign(std::bit_ceil(sections_.size() * 2 + 1), 0);
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        std::uint32_t& slot = slotOf(nameOf(sections_[i]), sections_[i].hash);
        if (slot == 0) {
            slot = static_cast<std::uint32_t>(i + 1);
            sections_[i].isFirst = true;
        }
    }
}

// The slot that holds the section of that name, or the free one for it.
std::uint32_t& IniReader::slotOf(std::u16string_view name, std::uint32_t hash) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot] != 0) {
        const Section& section = sections_[slots_[slot] - 1];
        if (section.hash == hash && sameName(nameOf(section), name)) {
            break;
        }
        slot = (slot + 1) & mask;
    }
    return slots_[slot];
}

const IniReader::Section* IniReader::find(std::u16string_view name) {
    const auto isNext = [&](const Section& section) { return section.isFirst && sameName(nameOf(section), name); };
    if (next_ >= sections_.size() || !isNext(sections_[next_])) {
        const std::uint32_t number = slotOf(name, nameHash(name));
        if (number == 0) {
            return nullptr;
        }
        next_ = number - 1;
    }
    return &sections_[next_++];
}

std::u16string_view IniReader::get(std::u16string_view section, std::u16string_view key) {
    std::u16string_view value;
    get(section, {&key, 1}, {&value, 1});
    return value;
}

void IniReader::get(std::u16string_view section, std::span<const std::u16string_view> keys,
                    std::span<std::u16string_view> values) {
    std::fill(values.begin(), values.end(), std::u16string_view());
    const Section* const found = find(section);
    if (found == nullptr) {
        return;
    }
    std::size_t missing = keys.size();
    IniLine line;
    IniLines lines(*text_, found->close);
    lines.next(line);  // skips the rest of the header
    while (missing > 0 && lines.next(line) && line.kind != IniLineKind::Section) {
        for (std::size_t i = 0; line.kind == IniLineKind::Key && i < keys.size(); ++i) {
            // A value already found points into the text, even if it is empty.
            if (values[i].data() == nullptr && sameName(line.name, keys[i])) {
                values[i] = iniValue(line.value);
                --missing;
                break;
            }
        }
    }
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
