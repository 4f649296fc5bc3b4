// The four lists without a window, loaded and composed by the same classes as in the window.
#pragma once

#include <array>
#include <string_view>

#include "ctl/ParsedFiles.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"

// The list's name on the command line and in CSV and JSON: "drm", "am", "fm", "fav".
std::u16string_view shortNameOf(ListKind kind);
// The title of the list's tab.
std::u16string_view titleOf(ListKind kind);
// The name in messages: "DRM", "AM", "FM", "Favourite".
std::u16string_view nameOf(ListKind kind);
inline int columnCountOf(ListKind kind) { return static_cast<int>(columnsOf(kind).size()); }

class Lists {
public:
    Lists();
    Lists(const Lists&) = delete;  // the lists refer to the rows
    Lists& operator=(const Lists&) = delete;

    Grid& grid(ListKind kind) { return rows_[static_cast<std::size_t>(kind)]; }
    const Grid& grid(ListKind kind) const { return rows_[static_cast<std::size_t>(kind)]; }
    StationLists& stationLists() { return lists_; }
    ReceiverSettings& settings() { return settings_; }

    // For an empty object only.
    void copyFrom(const Lists& other);
    // Appends the records of both files as a start of the window would; a file that is missing has none.
    void load(ParsedFiles parsedFiles, Files& files, CodePages& codePages);
    void load(WorkingCopyBytes bytes, Files& files, CodePages& codePages);
    // The files as the window would save them over these working copies.
    WorkingCopyBytes compose(const WorkingCopies& copies, Files& files, CodePages& codePages);

private:
    std::array<RowStore, kListCount> rows_;
    StationLists lists_;
    ReceiverSettings settings_;
};
