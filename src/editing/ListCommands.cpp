#include "editing/ListCommands.h"

#include <algorithm>
#include <array>

#include "platform/GridView.h"

namespace {

enum class Lists { All, AllButFavourites, DrmOnly };
enum class Needs { Nothing, ASelection, ARow };

// A command, its menu item and shortcut, and the lists that offer it.
struct Entry {
    Command command;
    MenuItem item;
    int letter;  // with Ctrl; 0: none
    Lists lists;
    Needs needs;

    bool isAlwaysOffered() const { return lists == Lists::All && needs == Needs::Nothing; }
};

constexpr std::array<Entry, kMenuItemCount> kEntries{
    {{Command::Edit, MenuItem::Edt, 'E', Lists::All, Needs::ASelection},
     {Command::DeleteSelected, MenuItem::Del, 'D', Lists::All, Needs::ASelection},
     {Command::AddNew, MenuItem::AddNew, 'N', Lists::AllButFavourites, Needs::Nothing},
     {Command::AddToFavourites, MenuItem::AddTo, 'A', Lists::AllButFavourites, Needs::ASelection},
     {Command::SyncInternet, MenuItem::SyncInternet, 'I', Lists::DrmOnly, Needs::Nothing},
     {Command::LoadFromReceiver, MenuItem::LoadFromReceiver, 'L', Lists::All, Needs::Nothing},
     {Command::SaveToReceiver, MenuItem::SaveToReceiver, 'S', Lists::All, Needs::Nothing},
     {Command::DeleteAll, MenuItem::DeleteAll, 0, Lists::All, Needs::ARow}}};

bool isIn(Lists lists, ListKind kind) {
    return lists == Lists::All || (lists == Lists::DrmOnly ? kind == ListKind::Drm : kind != ListKind::Favourite);
}

bool isMet(Needs needs, const Grid& grid) {
    switch (needs) {
        case Needs::ASelection:
            return grid.firstSelected() > 0;
        case Needs::ARow:
            return grid.rowCount() > 0;
        case Needs::Nothing:
            break;
    }
    return true;
}

bool isOffered(const Entry& entry, ListKind kind, const Grid& grid) {
    return isIn(entry.lists, kind) && isMet(entry.needs, grid);
}

Command ctrlCommand(ListKind kind, const Grid& grid, int key) {
    const auto entry = std::find_if(kEntries.begin(), kEntries.end(),
                                    [key](const Entry& candidate) { return candidate.letter == key && key != 0; });
    return entry != kEntries.end() && isOffered(*entry, kind, grid) ? entry->command : Command::None;
}

Command arrowCommand(int key) {
    if (key == Key::Left) {
        return Command::PreviousColumn;
    }
    return key == Key::Right ? Command::NextColumn : Command::None;
}

}  // namespace

Command commandForKey(ListKind kind, const Grid& grid, int key, int shift) {
    if (shift == Shift::Ctrl) {
        return ctrlCommand(kind, grid, key);
    }
    if ((shift & Shift::Ctrl) == 0 && key == Key::Delete) {
        return Command::DeleteSelected;
    }
    if ((shift & Shift::Ctrl) == 0 && key == Key::Enter) {
        return Command::Edit;
    }
    return shift == Shift::None ? arrowCommand(key) : Command::None;
}

bool keepsKeyFromGrid(int key, int shift) {
    const bool withCtrl = (shift & Shift::Ctrl) != 0;
    return key == Key::Delete || key == Key::Enter || (withCtrl && key >= 'A' && key <= 'Z') ||
           (shift == Shift::None && (key == Key::Left || key == Key::Right));
}

Command commandOf(MenuItem item) {
    const auto entry = std::find_if(kEntries.begin(), kEntries.end(),
                                    [item](const Entry& candidate) { return candidate.item == item; });
    return entry != kEntries.end() ? entry->command : Command::None;
}

void enableMenuItems(PopupMenu& menu, ListKind kind, const Grid& grid) {
    for (const Entry& entry : kEntries) {
        if (!entry.isAlwaysOffered()) {
            menu.setEnabled(entry.item, isOffered(entry, kind, grid));
        }
    }
}
