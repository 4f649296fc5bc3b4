// The commands of the window: every key and menu item is an entry of one table.
#include <algorithm>

#include "shell/MainForm.h"

void MainForm::commitEdit() {
    const KeptLists::AtEnd kept(keptLists_);
    cellEditing_.commit();
}

void MainForm::viewChanged() {
    // The view may change mid-command; do not write a snapshot then.
    if (cellEditing_.isEditing()) {
        commitEdit();
    }
}

bool MainForm::LV_KeyDown(ListKind kind, int key, int shift) {
    run(commandForKey(kind, stationLists().grid(kind), key, shift));
    return keepsKeyFromGrid(key, shift);
}

void MainForm::LV_RightButton(ListKind kind, double x, double y) {
    rightClick_.menuOpens();
    showPopup(kind, x, y);
}

void MainForm::LV_ColumnDragged(ListKind kind) {
    viewChanged();
    cellEditing_.columnDragged(kind);
}

void MainForm::LV_Resized(ListKind kind) {
    viewChanged();
    cellEditing_.gridResized(kind);
}

void MainForm::LV_HeaderClick(ListKind kind, std::u16string_view key) {
    const KeptLists::AtEnd kept(keptLists_);
    cellEditing_.commit();  // a header takes no focus, and the rows are about to move under the box
    sortListview_.headerClicked(stationLists()[kind], key);
}

void MainForm::showPopup(ListKind kind, double x, double y) {
    enableMenuItems(platform_.popupMenu, kind, stationLists().grid(kind));
    platform_.popupMenu.show(static_cast<int>(kind), x, y);
}

void MainForm::menuChosen(MenuItem item) { run(commandOf(item)); }

void MainForm::run(Command command) {
    struct Handler {
        Command command;
        void (MainForm::*run)();
    };
    static constexpr std::array<Handler, 10> kHandlers{{{Command::Edit, &MainForm::Edt_Click},
                                                        {Command::DeleteSelected, &MainForm::Del_Click},
                                                        {Command::AddNew, &MainForm::AddNew_Click},
                                                        {Command::AddToFavourites, &MainForm::AddTo_Click},
                                                        {Command::SyncInternet, &MainForm::SyncInternet_Click},
                                                        {Command::LoadFromReceiver, &MainForm::LoadFromReceiver_Click},
                                                        {Command::SaveToReceiver, &MainForm::SaveToReceiver_Click},
                                                        {Command::DeleteAll, &MainForm::DeleteAll_Click},
                                                        {Command::PreviousColumn, &MainForm::PreviousColumn},
                                                        {Command::NextColumn, &MainForm::NextColumn}}};
    const KeptLists::AtEnd kept(keptLists_);
    const auto handler = std::find_if(kHandlers.begin(), kHandlers.end(),
                                      [command](const Handler& entry) { return entry.command == command; });
    if (handler != kHandlers.end()) {
        (this->*handler->run)();
    }
}

void MainForm::Edt_Click() {
    if (const auto kind = shownList()) {
        cellEditing_.startEdit(*kind);
    }
}

void MainForm::Del_Click() {
    if (const auto kind = shownList()) {
        deleteCommands_.deleteSelected(*kind);
    }
}

void MainForm::AddNew_Click() { addForm_.open(); }

void MainForm::AddTo_Click() { AddSelectedToFavourites(); }

void MainForm::SyncInternet_Click() { scheduleSync_.SyncDrmSchedule(); }

void MainForm::LoadFromReceiver_Click() { receiverCopies_.ReloadFromReceiver(); }

void MainForm::SaveToReceiver_Click() { receiverCopies_.SaveToReceiver(); }

void MainForm::DeleteAll_Click() { deleteCommands_.DeleteAll_Click(); }

void MainForm::PreviousColumn() {
    if (const auto kind = shownList()) {
        cellEditing_.moveColumn(*kind, -1);
    }
}

void MainForm::NextColumn() {
    if (const auto kind = shownList()) {
        cellEditing_.moveColumn(*kind, 1);
    }
}
