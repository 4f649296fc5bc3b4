// The two list files with their sections and keys, in the receiver's spelling. The keys of the records are in the table
// of columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "storage/lists/ListFileId.h"
#include "storage/stations/ListKind.h"

namespace ListFile {
inline constexpr std::u16string_view kListName = u"List.ini";
inline constexpr std::u16string_view kUserName = u"User.ini";
constexpr std::u16string_view nameOf(ListFileId file) { return file == ListFileId::List ? kListName : kUserName; }
// The file that holds the list.
constexpr ListFileId fileOf(ListKind kind) { return kind == ListKind::Favourite ? ListFileId::User : ListFileId::List; }

inline constexpr std::u16string_view kTotal = u"Total";
inline constexpr std::u16string_view kVersion = u"Version";
inline constexpr std::u16string_view kLast = u"LAST";
inline constexpr std::u16string_view kEnd = u"kvt update end";  // the receiver stops reading here

inline constexpr std::u16string_view kUserDef = u"UserDef";  // the last key of every record

inline constexpr std::u16string_view kMajor = u"major";
inline constexpr std::u16string_view kType = u"TYPE";
inline constexpr std::u16string_view kStation = u"Station";
inline constexpr std::u16string_view kName = u"name";
inline constexpr std::u16string_view kIndex = u"Index";

std::u16string_view countKey(ListKind kind);       // in kTotal
std::u16string_view sectionPrefix(ListKind kind);  // followed by the 0-based number of the record
}  // namespace ListFile

// The names of a list's record sections, in one buffer. In rising order each costs little more than its last digit.
class RecordSection {
public:
    explicit RecordSection(ListKind kind);
    // index is 0-based; valid until the next call.
    std::u16string_view of(int index);

private:
    std::u16string name_;
    std::size_t prefixLength_;
    int last_ = -1;
};
