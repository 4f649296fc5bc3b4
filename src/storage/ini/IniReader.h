// Reads a profile (INI) text. Of duplicate names the first one counts. Sections are indexed up to the last one found,
// so reading them in the order of the text is one pass over it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/SharedText.h"
#include "storage/ini/IniSyntax.h"
#include "storage/text/Numbers.h"

class IniReader {
public:
    IniReader() : IniReader(std::u16string()) {}
    explicit IniReader(std::u16string text) : IniReader(SharedText(std::move(text))) {}
    explicit IniReader(SharedText text);

    // The value by the rules of iniValue, NULs included; empty if the section or key does not exist. All values are
    // views into text().
    std::u16string_view get(std::u16string_view section, std::u16string_view key);
    // Several keys of one section, in one pass over it; each value ends at its first NUL. The keys consist of letters;
    // reading is fastest if the section has them in the same order. `values` has at least the size of `keys`.
    void get(std::u16string_view section, std::span<const std::u16string_view> keys,
             std::span<std::u16string_view> values);

    bool hasSection(std::u16string_view name) { return find(name).has_value(); }

    // May outlive the reader.
    const SharedText& text() const { return text_; }

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

    static NumberedName split(std::u16string_view name) {
        if (name.empty() || !isDigit(name.back())) {
            return {name, kNoDigit};
        }
        return {name.substr(0, name.size() - 1), static_cast<std::size_t>(name.back() - u'0')};
    }
    std::u16string_view stemOf(const Group& group) const { return text_.view().substr(group.stem, group.stemLength); }
    // The position in slots_ of the group with that stem, or of the free slot for it.
    std::size_t slotOf(std::u16string_view stem, std::uint32_t hash) const;
    // Null if no section has the stem; valid until the next closeOf.
    Group* groupOf(std::u16string_view stem) {
        const bool isLast = lastGroup_ < groups_.size() && sameName(stemOf(groups_[lastGroup_]), stem);
        return isLast ? &groups_[lastGroup_] : otherGroupOf(stem);
    }
    Group* otherGroupOf(std::u16string_view stem);
    // The place in the index for the closing bracket of this header; the name is a part of the text.
    std::uint32_t& closeOf(std::u16string_view header);
    void enlargeIndex();
    // The position of the first bracket from there on that begins a line.
    std::optional<std::size_t> nextBracket(std::size_t from) const;
    // Fast path for reading in the order of the text: true if the next header has this name, in the same spelling and
    // without blanks; indexed_ is then the position of its closing bracket. The name must have a stem of the index,
    // since that contains no bracket or line end.
    bool isNext(std::u16string_view name);
    // The name in the next header; indexed_ is then the position of its closing bracket.
    std::optional<std::u16string_view> nextHeader();
    // The position of the closing bracket of the first section of that name.
    std::optional<std::size_t> find(std::u16string_view name);

    SharedText text_;
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
