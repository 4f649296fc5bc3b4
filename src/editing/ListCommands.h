// The command for a key in a grid, and the popup menu items that a list offers.
#pragma once

#include "platform/Grid.h"
#include "platform/PopupMenu.h"
#include "storage/stations/ListKind.h"

enum class Command {
    None,
    DeleteSelected,
    Edit,
    AddNew,
    LoadFromReceiver,
    SyncInternet,
    SaveToReceiver,
    AddToFavourites,
    DeleteAll,
    PreviousColumn,
    NextColumn,
};

// Key and shift state as in platform/GridView.h.
Command commandForKey(ListKind kind, const Grid& grid, int key, int shift);
// True for keys that never reach the control (Delete, Enter, Ctrl with a letter, plain Left and Right), even if they
// are no command in this list.
bool keepsKeyFromGrid(int key, int shift);
Command commandOf(MenuItem item);
// Load and save are always enabled.
void enableMenuItems(PopupMenu& menu, ListKind kind, const Grid& grid);
