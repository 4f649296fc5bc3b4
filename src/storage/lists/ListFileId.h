// Identifies one of the two list files.
#pragma once

enum class ListFileId { List, User };
inline constexpr ListFileId kListFiles[] = {ListFileId::List, ListFileId::User};

// A pair of values, one for each list file.
template <typename Value>
struct PerListFile {
    Value list{};
    Value user{};

    Value& operator[](ListFileId file) { return file == ListFileId::List ? list : user; }
    const Value& operator[](ListFileId file) const { return file == ListFileId::List ? list : user; }

    friend bool operator==(const PerListFile&, const PerListFile&) = default;
};
