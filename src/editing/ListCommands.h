// Which command a key of a grid stands for, and which popup menu items a list offers.
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
// True: the control must not use the key itself (Delete, Enter, Ctrl with a letter, plain Left and Right),
// whether or not it stands for a command in this list.
bool keepsKeyFromGrid(int key, int shift);
Command commandOf(MenuItem item);
// Loading and saving are always offered and never touched.
void enableMenuItems(PopupMenu& menu, ListKind kind, const Grid& grid);
