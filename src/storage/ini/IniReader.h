// A profile (INI) text parsed once, for any number of look-ups. Where a name stands twice, the first one wins.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ini/IniSyntax.h"

class IniReader {
public:
    IniReader() = default;
    explicit IniReader(std::u16string text);

    // The value by the rules of iniValue, NULs included; empty when there is no such section or key.
    // Valid as long as the profile is neither moved nor destroyed.
    std::u16string_view get(std::u16string_view section, std::u16string_view key) const;

    // For several keys of one section. Valid as long as the texts of the profile are.
    class SectionKeys;
    SectionKeys section(std::u16string_view name) const;

private:
    // Offsets and lengths in UTF-16 units of text_.
    struct Part {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
    };
    struct Key {
        Part name;
        Part value;
    };
    struct Section {
        Part name;
        std::uint32_t hash = 0;
        std::uint32_t firstKey = 0;
        std::uint32_t keyCount = 0;
    };

    Part partOf(std::u16string_view piece) const;
    std::u16string_view textOf(Part part) const { return std::u16string_view(text_).substr(part.start, part.length); }
    void parse();
    void buildIndex();
    const Section* find(std::u16string_view name) const;

    std::u16string text_;
    std::vector<Key> keys_;
    std::vector<Section> sections_;
    std::vector<std::uint32_t> slots_;  // open addressing: number of a section plus 1, 0 where free
};

class IniReader::SectionKeys {
public:
    // As IniReader::get; empty for every key of a section that there is not.
    std::u16string_view get(std::u16string_view key) const;

private:
    friend class IniReader;
    SectionKeys(const IniReader& profile, const Section* section) : profile_(profile), section_(section) {}

    const IniReader& profile_;
    const Section* section_;
};

struct IniText {
    std::u16string text;   // without its mark
    bool isUtf16 = false;  // began with FF FE; otherwise the file is in the ANSI code page
};

IniText decodeIni(std::string_view bytes, CodePages& codePages);
// An unreadable or missing file is an empty profile.
IniReader readIni(std::u16string_view path, Files& files, CodePages& codePages);
