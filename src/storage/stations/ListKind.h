// The four lists. The value is the tab index of SSTab1 and the order of the grids.
#pragma once

#include <array>
#include <string_view>

#include "platform/TabControl.h"

enum class ListKind { Drm = 0, Am = 1, Fm = 2, Favourite = 3 };
inline constexpr int kListCount = kTabCount;
inline constexpr std::array<ListKind, kListCount> kListKinds = {ListKind::Drm, ListKind::Am, ListKind::Fm,
                                                                ListKind::Favourite};
inline constexpr int kMaxColumns = 5;    // capacity of a grid row; one more than any list uses
inline constexpr int kMaxRecords = 256;  // enforced when adding, not when loading or syncing
inline constexpr std::u16string_view kListFull = u"Max number of each list is 256!";

constexpr bool isListTab(int tab) { return tab >= 0 && tab < kListCount; }
