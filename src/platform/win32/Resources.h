// Identifiers shared with the resource script.
#pragma once

#define HALCYON_ICON 1

#ifndef RC_INVOKED
inline constexpr int kIconResource = HALCYON_ICON;
#endif
