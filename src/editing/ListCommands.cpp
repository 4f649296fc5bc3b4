#include "editing/ListCommands.h"

#include "platform/GridView.h"

namespace {

bool hasSelection(const Grid& grid) { return grid.firstSelected() > 0; }

Command ctrlCommand(ListKind kind, const Grid& grid, int key) {
    const bool favourites = kind == ListKind::Favourite;
    const auto onlyIf = [](bool offered, Command command) { return offered ? command : Command::None; };
    switch (key) {
        case 'N':
            return onlyIf(!favourites, Command::AddNew);
        case 'L':
            return Command::LoadFromReceiver;
        case 'I':
            return onlyIf(kind == ListKind::Drm, Command::SyncInternet);
        case 'S':
            return Command::SaveToReceiver;
        case 'E':
            return onlyIf(hasSelection(grid), Command::Edit);
        case 'D':
            return onlyIf(hasSelection(grid), Command::DeleteSelected);
        case 'A':
            return onlyIf(!favourites && hasSelection(grid), Command::AddToFavourites);
        default:
            return Command::None;
    }
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

void enableMenuItems(PopupMenu& menu, ListKind kind, const Grid& grid) {
    const bool favourites = kind == ListKind::Favourite;
    const bool selection = hasSelection(grid);
    menu.setEnabled(MenuItem::DeleteAll, grid.rowCount() > 0);
    menu.setEnabled(MenuItem::Edt, selection);
    menu.setEnabled(MenuItem::Del, selection);
    menu.setEnabled(MenuItem::AddTo, selection && !favourites);
    menu.setEnabled(MenuItem::SyncInternet, kind == ListKind::Drm);
    menu.setEnabled(MenuItem::AddNew, !favourites);
}
