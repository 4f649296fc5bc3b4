// Sets and removes keys of a profile (INI) text by the rules of the system's profile functions. Unchanged lines keep
// their bytes and line ends. The text is composed once, in compose, so many changes cost little more than one.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "storage/ini/IniSyntax.h"

class IniEditor {
public:
    explicit IniEditor(std::u16string text);
    IniEditor(const IniEditor&) = delete;  // lines_ are views into text_
    IniEditor& operator=(const IniEditor&) = delete;

    // Replaces the value in its line. A new key is added at the end of its section, before blank lines; a new section
    // at the end of the text, on its own line.
    void set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    // Removes the section's line and everything up to the next section, comments included.
    void removeSection(std::u16string_view section);

    std::u16string compose() const;

private:
    struct Section {
        std::u16string_view name;
        std::vector<std::u16string_view> lines;  // with their line ends; the first is the section's header
        bool removed = false;
    };
    struct NameHash {
        std::size_t operator()(std::u16string_view name) const { return nameHash(name); }
    };
    struct NameEqual {
        bool operator()(std::u16string_view a, std::u16string_view b) const { return sameName(a, b); }
    };

    Section* find(std::u16string_view name);
    Section& append(std::u16string_view name);
    void addSection(std::u16string_view name);
    void endLastLine(std::vector<std::u16string_view>& lines);
    std::u16string_view keep(std::u16string text);

    std::u16string text_;
    std::deque<std::u16string> added_;  // texts of new lines; a deque, as the views must stay valid
    std::vector<Section> sections_;     // the first has no name: the lines before all sections
    // The sections of each name, in the order of the text.
    std::unordered_map<std::u16string_view, std::vector<std::size_t>, NameHash, NameEqual> index_;
};

// Appends `section` in brackets, or key, "=" and value, and a line end. A line end inside the value becomes a blank,
// since it would split the value on reading.
void appendIniSection(std::u16string& text, std::u16string_view section);
void appendIniKey(std::u16string& text, std::u16string_view key, std::u16string_view value);
