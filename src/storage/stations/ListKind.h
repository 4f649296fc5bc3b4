// The four lists. The value is the tab index of SSTab1 and the order of the grids.
#pragma once

#include <string_view>

enum class ListKind { Drm = 0, Am = 1, Fm = 2, Favourite = 3 };
inline constexpr int kListCount = 4;
inline constexpr int kMaxRecords = 256;  // enforced when adding, not when loading or syncing
inline constexpr std::u16string_view kListFull = u"Max number of each list is 256!";

inline constexpr bool isListTab(int tab) { return tab >= 0 && tab < kListCount; }
