// A profile (INI) text with keys set and removed by the rules of the system's profile functions. Lines that are not
// changed stay as they are, with their line ends. Many changes cost no more than one: the text is put
// together only in compose.
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
    IniEditor(const IniEditor&) = delete;  // lines are parts of the text held here
    IniEditor& operator=(const IniEditor&) = delete;

    // Replaces the value where it stands. A new key goes to the end of its section, before blank lines;
    // a new section to the end of the text, on a line of its own.
    void set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    // With its line, its keys and its comments, up to the next section.
    void removeSection(std::u16string_view section);

    std::u16string compose() const;

private:
    struct Section {
        std::u16string_view name;
        std::vector<std::u16string_view> lines;  // with their line ends; the first is the section's own
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
    std::deque<std::u16string> added_;  // texts of new lines; a deque, so that they stay where they are
    std::vector<Section> sections_;     // the first is nameless: what stands before all sections
    // The sections of a name, in the order of the text.
    std::unordered_map<std::u16string_view, std::vector<std::size_t>, NameHash, NameEqual> index_;
};

// Appends `section` in brackets, or key and value with "=", and the line end. A line end inside the value would
// cut it in two on reading, so it becomes a blank.
void appendIniSection(std::u16string& text, std::u16string_view section);
void appendIniKey(std::u16string& text, std::u16string_view key, std::u16string_view value);
