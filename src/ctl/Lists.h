// The four lists without a window: loaded from bytes and composed to bytes by the classes that the window uses.
#pragma once

#include <array>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"

inline constexpr std::array<ListKind, kListCount> kListKinds = {ListKind::Drm, ListKind::Am, ListKind::Fm,
                                                                ListKind::Favourite};

// The name of a list on the command line and in CSV and JSON: "drm", "am", "fm", "fav".
std::u16string_view shortNameOf(ListKind kind);
// As the tabs of the window are called.
std::u16string_view titleOf(ListKind kind);
// "DRM", "AM", "FM", "Favourite", for messages.
std::u16string_view nameOf(ListKind kind);
constexpr int columnCountOf(ListKind kind) { return kind == ListKind::Drm ? 4 : 3; }

class Lists {
public:
    Lists();
    Lists(const Lists&) = delete;  // the lists refer to the rows
    Lists& operator=(const Lists&) = delete;

    Grid& grid(ListKind kind) { return rows_[static_cast<std::size_t>(kind)]; }
    const Grid& grid(ListKind kind) const { return rows_[static_cast<std::size_t>(kind)]; }
    StationLists& stationLists() { return lists_; }
    ReceiverSettings& settings() { return settings_; }

    // Of an empty object.
    void copyFrom(const Lists& other);
    // Appends the records of both files, as a start of the window would show them; a file of which nothing is known
    // has none. Bytes that begin with the mark of UTF-16 are taken as such, all others as UTF-8.
    void load(const WorkingCopyBytes& bytes, Files& files, CodePages& codePages);
    // As the window would save them over these working copies.
    WorkingCopyBytes compose(const WorkingCopies& copies, Files& files, CodePages& codePages);

private:
    std::array<RowStore, kListCount> rows_;
    StationLists lists_;
    ReceiverSettings settings_;
};
