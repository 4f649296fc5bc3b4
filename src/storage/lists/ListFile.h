// The two list files, their sections and keys, as the receiver spells them.
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

inline constexpr std::u16string_view kTotal = u"Total";
inline constexpr std::u16string_view kVersion = u"Version";
inline constexpr std::u16string_view kLast = u"LAST";
inline constexpr std::u16string_view kEnd = u"kvt update end";  // the receiver stops reading here

inline constexpr std::u16string_view kProgramme = u"Programme";
inline constexpr std::u16string_view kFrequency = u"Frequency";  // kHz in every list
inline constexpr std::u16string_view kTime = u"StartStopTimeUTC";
inline constexpr std::u16string_view kTarget = u"Target";
inline constexpr std::u16string_view kType = u"TYPE";
inline constexpr std::u16string_view kUserDef = u"UserDef";

inline constexpr std::u16string_view kMajor = u"major";
inline constexpr std::u16string_view kStation = u"Station";
inline constexpr std::u16string_view kName = u"name";
inline constexpr std::u16string_view kIndex = u"Index";

// Units behind a favourite's frequency.
inline constexpr std::u16string_view kKilohertz = u"  kHz";
inline constexpr std::u16string_view kMegahertz = u"  MHz";
inline constexpr std::size_t kUnitLength = kKilohertz.size();
static_assert(kMegahertz.size() == kUnitLength);

std::u16string_view countKey(ListKind kind);       // in kTotal
std::u16string_view sectionPrefix(ListKind kind);  // followed by the 0-based number of the record
// The type of a favourite that is copied from the list; empty for the Favourite list.
std::u16string_view typeOf(ListKind kind);
// Such a favourite's frequency is in MHz, any other in kHz.
bool isFm(std::u16string_view type);
inline std::u16string_view unitOf(std::u16string_view type) { return isFm(type) ? kMegahertz : kKilohertz; }
}  // namespace ListFile

// The names of a list's record sections, one after the other, in one buffer.
class RecordSection {
public:
    explicit RecordSection(ListKind kind);
    // index is 0-based; valid until the next call.
    std::u16string_view of(int index);

private:
    std::u16string name_;
    std::size_t prefixLength_;
};
