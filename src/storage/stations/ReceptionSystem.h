// The reception system of a favourite, as its type names it, and the unit of its frequency.
#pragma once

#include <cstddef>
#include <string_view>

#include "storage/stations/ListKind.h"

namespace ReceptionSystem {
// The unit that follows a favourite's frequency.
inline constexpr std::u16string_view kKilohertz = u"  kHz";
inline constexpr std::u16string_view kMegahertz = u"  MHz";
inline constexpr std::size_t kUnitLength = kKilohertz.size();
static_assert(kMegahertz.size() == kUnitLength);

// The type of a favourite copied from this list; empty for the Favourite list.
std::u16string_view typeOf(ListKind kind);
// True for a favourite whose frequency is in MHz; false for kHz.
bool isFm(std::u16string_view type);
inline std::u16string_view unitOf(std::u16string_view type) { return isFm(type) ? kMegahertz : kKilohertz; }
}  // namespace ReceptionSystem
