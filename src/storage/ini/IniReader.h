// Reads a profile (INI) text. Of duplicate names the first one counts. Sections are indexed up to the last one found,
// so reading them in the order of the text is one pass over it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
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
    // Several keys of one section, in one pass over it; each value ends at its first NUL. The keys consist of letters;
    // reading is fastest if the section has them in the same order. `values` has at least the size of `keys`.
    void get(std::u16string_view section, std::span<const std::u16string_view> keys,
             std::span<std::u16string_view> values);

    bool hasSection(std::u16string_view name) { return find(name).has_value(); }

    // May outlive the reader.
    const std::shared_ptr<const std::u16string>& text() const { return text_; }

private:
    // A name without its last digit; names that number the records of a list share most of their stems.
    struct NumberedName {
        std::u16string_view stem;
        std::size_t digit = kNoDigit;
    };
    static constexpr std::size_t kNoDigit = 10;
    // The sections of one stem. Offsets and lengths in UTF-16 units of the text.
    struct Group {
        std::uint32_t stem = 0;
        std::uint32_t stemLength = 0;
        std::uint32_t hash = 0;
        std::array<std::uint32_t, kNoDigit + 1> closes{};  // by digit: the position of the closing bracket, 0 if none
    };

    static NumberedName split(std::u16string_view name);
    std::u16string_view stemOf(const Group& group) const {
        return std::u16string_view(*text_).substr(group.stem, group.stemLength);
    }
    // The position in slots_ of the group with that stem, or of the free slot for it.
    std::size_t slotOf(std::u16string_view stem, std::uint32_t hash) const;
    // Null if no section has the stem.
    Group* groupOf(std::u16string_view stem);
    // Indexes the section whose closing bracket is at indexed_, unless an earlier one has the same name.
    void add(std::u16string_view header);
    void enlargeIndex();
    // The name in the next header; indexed_ is then the position of its closing bracket.
    std::optional<std::u16string_view> nextHeader();
    // The position of the closing bracket of the first section of that name.
    std::optional<std::size_t> find(std::u16string_view name);
    // Calls take(line, lineEnd) for the lines after the section's header, until it returns false.
    template <class Take>
    void readLines(std::u16string_view section, Take take);

    std::shared_ptr<const std::u16string> text_;
    std::size_t indexed_ = 0;  // all sections before this position are in the index
    std::vector<Group> groups_;
    std::size_t lastGroup_ = 0;         // the index of the group used last, which the next name often belongs to
    std::vector<std::uint32_t> slots_;  // open addressing: 1 + index of a group, 0 if free
};

struct IniText {
    std::u16string text;   // without its byte-order mark
    bool isUtf16 = false;  // began with FF FE; otherwise in the ANSI code page
};

IniText decodeIni(std::string_view bytes, CodePages& codePages);
// Empty for an unreadable or missing file.
IniReader readIni(std::u16string_view path, Files& files, CodePages& codePages);
