#include "storage/ini/IniReader.h"

#include <bit>
#include <cstddef>
#include <utility>

#include "storage/text/Utf16Bytes.h"
#include "storage/text/mTextUTF.h"

IniReader::IniReader(std::u16string text) : text_(std::move(text)) {
    parse();
    buildIndex();
}

IniReader::Part IniReader::partOf(std::u16string_view piece) const {
    return {static_cast<std::uint32_t>(piece.data() - text_.data()), static_cast<std::uint32_t>(piece.size())};
}

void IniReader::parse() {
    const std::u16string_view text = text_;
    for (std::size_t start = 0; start < text.size();) {
        const IniLineEnd lineEnd = findLineEnd(text, start);
        const IniLine line = parseIniLine(text.substr(start, lineEnd.end - start));
        if (line.kind == IniLineKind::Section) {
            sections_.push_back({partOf(line.name), nameHash(line.name), static_cast<std::uint32_t>(keys_.size()), 0});
        } else if (line.kind == IniLineKind::Key && !sections_.empty()) {
            keys_.push_back({partOf(line.name), partOf(line.value)});
            ++sections_.back().keyCount;
        }
        start = lineEnd.next;
    }
}

void IniReader::buildIndex() {
    slots_.assign(std::bit_ceil(sections_.size() * 2 + 1), 0);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        const std::u16string_view name = textOf(sections_[i].name);
        std::size_t slot = sections_[i].hash & mask;
        while (slots_[slot] != 0) {
            const Section& other = sections_[slots_[slot] - 1];
            if (other.hash == sections_[i].hash && sameName(textOf(other.name), name)) {
                break;
            }
            slot = (slot + 1) & mask;
        }
        if (slots_[slot] == 0) {
            slots_[slot] = static_cast<std::uint32_t>(i + 1);
        }
    }
}

const IniReader::Section* IniReader::find(std::u16string_view name) const {
    if (sections_.empty()) {
        return nullptr;
    }
    const std::uint32_t hash = nameHash(name);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = hash & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
        const Section& section = sections_[slots_[slot] - 1];
        if (section.hash == hash && sameName(textOf(section.name), name)) {
            return &section;
        }
    }
    return nullptr;
}

IniReader::SectionKeys IniReader::section(std::u16string_view name) const { return {*this, find(name)}; }

std::u16string_view IniReader::get(std::u16string_view section, std::u16string_view key) const {
    return this->section(section).get(key);
}

std::u16string_view IniReader::SectionKeys::get(std::u16string_view key) const {
    for (std::uint32_t i = 0; section_ != nullptr && i < section_->keyCount; ++i) {
        const Key& candidate = profile_.keys_[section_->firstKey + i];
        if (candidate.name.length == key.size() && sameName(profile_.textOf(candidate.name), key)) {
            return iniValue(profile_.textOf(candidate.value));
        }
    }
    return {};
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
