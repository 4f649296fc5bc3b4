// A profile (INI) text, indexed once for any number of reads. Of duplicate names the first one counts.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ini/IniSyntax.h"

class IniReader {
public:
    IniReader() : IniReader(std::u16string()) {}
    explicit IniReader(std::u16string text);

    // The value by the rules of iniValue, NULs included; empty if the section or key does not exist. All values are
    // views into text().
    std::u16string_view get(std::u16string_view section, std::u16string_view key);
    // Several keys of one section, in one pass over it. `values` has at least the size of `keys`.
    void get(std::u16string_view section, std::span<const std::u16string_view> keys,
             std::span<std::u16string_view> values);

    bool hasSection(std::u16string_view name) { return find(name) != nullptr; }

    // May outlive the reader.
    const std::shared_ptr<const std::u16string>& text() const { return text_; }

private:
    // Offsets and lengths in UTF-16 units of the text.
    struct Section {
        std::uint32_t name = 0;
        std::uint32_t nameLength = 0;
        std::uint32_t hash = 0;
        std::uint32_t close = 0;  // the closing bracket of the header
        bool isFirst = false;     // the first section of its name
    };

    std::u16string_view nameOf(const Section& section) const {
        return std::u16string_view(*text_).substr(section.name, section.nameLength);
    }
    void findSections();
    void buildIndex();
    std::uint32_t& slotOf(std::u16string_view name, std::uint32_t hash);
    const Section* find(std::u16string_view name);

    std::shared_ptr<const std::u16string> text_;
    std::vector<Section> sections_;
    std::vector<std::uint32_t> slots_;  // open addressing: 1 + index of a section, 0 if free
    std::size_t next_ = 0;              // follows the section found last: most reads are in the order of the text
};

struct IniText {
    std::u16string text;   // without its byte-order mark
    bool isUtf16 = false;  // began with FF FE; otherwise in the ANSI code page
};

IniText decodeIni(std::string_view bytes, CodePages& codePages);
// Empty for an unreadable or missing file.
IniReader readIni(std::u16string_view path, Files& files, CodePages& codePages);
