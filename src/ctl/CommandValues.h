// The words on the command line that stand for a value, and the forms of numbers and times.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/Options.h"

template <typename Value>
struct NamedValue {
    std::string_view name;
    Value value;
};

inline constexpr std::array<NamedValue<ListKind>, kListCount> kListNames = {
    {{"drm", ListKind::Drm}, {"am", ListKind::Am}, {"fm", ListKind::Fm}, {"fav", ListKind::Favourite}}};
inline constexpr std::array<NamedValue<ExportFormat>, 5> kExportFormats = {{{"csv", ExportFormat::Csv},
                                                                            {"json", ExportFormat::Json},
                                                                            {"ini", ExportFormat::Ini},
                                                                            {"html", ExportFormat::Html},
                                                                            {"gqrx", ExportFormat::Gqrx}}};
inline constexpr std::array<NamedValue<ScheduleFormat>, 4> kScheduleFormats = {{{"auto", ScheduleFormat::Auto},
                                                                                {"nine", ScheduleFormat::NineLines},
                                                                                {"eibi", ScheduleFormat::Eibi},
                                                                                {"hfcc", ScheduleFormat::Hfcc}}};
// 0: Monday.
inline constexpr std::array<NamedValue<int>, 7> kDayNames = {
    {{"mo", 0}, {"tu", 1}, {"we", 2}, {"th", 3}, {"fr", 4}, {"sa", 5}, {"su", 6}}};

template <typename Value, std::size_t kCount>
std::optional<Value> valueOf(const std::array<NamedValue<Value>, kCount>& names, std::string_view word) {
    const auto found =
        std::find_if(names.begin(), names.end(), [word](const auto& named) { return named.name == word; });
    return found == names.end() ? std::nullopt : std::optional(found->value);
}

// "csv, json and html".
std::string enumeration(const std::vector<std::string_view>& names);

template <typename Names>
std::string namesOf(const Names& names) {
    std::vector<std::string_view> words;
    words.reserve(names.size());
    for (const auto& named : names) {
        words.push_back(named.name);
    }
    return enumeration(words);
}

// The checks return what is wrong with the word, empty if nothing is.
template <typename Names>
std::string checkName(const Names& names, const std::string& word) {
    return valueOf(names, word) ? "" : "\"" + word + "\" is none of " + namesOf(names);
}
std::string checkFrequency(const std::string& word);
std::string checkTime(const std::string& word);
std::string checkFirst(const std::string& word);

// "7325", "7325±5" or "7325+-5", in kHz.
std::optional<FrequencyRange> frequencyRangeOf(std::string_view word);
// 1 to the most records of a list.
std::optional<int> firstOf(std::string_view word);
