#include "shell/MainForm.h"

#include <utility>

#include "platform/SingleInstance.h"
#include "storage/lists/ListFile.h"

MainForm::MainForm(const Platform& platform)
    : platform_(platform),
      workingCopies_{platform.programFolder + std::u16string(ListFile::kListName),
                     platform.programFolder + std::u16string(ListFile::kUserName)},
      drmLV_(*platform.gridViews[0]),
      amLV_(*platform.gridViews[1]),
      fmLV_(*platform.gridViews[2]),
      favLV_(*platform.gridViews[3]),
      gridEvents_{GridEvents(*this, ListKind::Drm), GridEvents(*this, ListKind::Am), GridEvents(*this, ListKind::Fm),
                  GridEvents(*this, ListKind::Favourite)},
      msgBox_(platform.messageBox, platform.windowHook),
      findDiskDriver_(platform.volumes, platform.files),
      totals_(platform.tabs, platform.statusBar, {&drmLV_, &amLV_, &fmLV_, &favLV_}),
      loader_(stationLists(), workingCopies_, settings_, platform.files, platform.codePages),
      saver_(stationLists(), workingCopies_, settings_, platform.files, platform.codePages),
      backup_(platform.programFolder, platform.files, platform.clock),
      receiverCopies_(stationLists(), workingCopies_, ReceiverRoot_, loader_, saver_, findDiskDriver_, msgBox_, totals_,
                      platform.files, platform.codePages, backup_),
      recovery_(platform.programFolder, platform.files),
      startUp_(workingCopies_, receiverCopies_, loader_, saver_, recovery_, findDiskDriver_, platform.files,
               platform.codePages),
      validation_(stationLists(), platform.tabs, editState_, msgBox_),
      cellEditing_(stationLists(), platform.tabs, platform.editBox, platform.statusBar, validation_, editState_),
      deleteCommands_(stationLists(), platform.tabs, msgBox_, totals_),
      sortListview_(platform.textCompare),
      addForm_(platform.addFormView, platform.mainWindow, platform.tabs, stationLists(), totals_, msgBox_),
      addToFavourites_(stationLists(), platform.tabs, totals_, msgBox_),
      scheduleSync_(drmLV_, platform.files, platform.codePages, platform.httpClient, platform.statusBar, totals_,
                    msgBox_, platform.programFolder) {
    const std::array<Grid*, kListCount> grids = {&drmLV_, &amLV_, &fmLV_, &favLV_};
    for (std::size_t tab = 0; tab < grids.size(); ++tab) {
        platform.gridViews[tab]->attach(*grids[tab], gridEvents_[tab]);
    }
}

StationLists MainForm::stationLists() {
    return StationLists({StationList{ListKind::Drm, drmLV_, *platform_.gridViews[0]},
                         StationList{ListKind::Am, amLV_, *platform_.gridViews[1]},
                         StationList{ListKind::Fm, fmLV_, *platform_.gridViews[2]},
                         StationList{ListKind::Favourite, favLV_, *platform_.gridViews[3]}});
}

bool MainForm::Form_Load() {
    if (platform_.singleInstance.previousInstance()) {
        // The window has no listener yet, so that its closing saves nothing over the other instance's files.
        platform_.addFormView.destroy();
        platform_.mainWindow.close();
        return false;
    }
    platform_.mainWindow.setListener(*this);
    platform_.tabs.setListener(*this);
    platform_.editBox.setListener(*this);
    platform_.popupMenu.setListener(*this);
    backup_.removeLeftovers();
    startUp_.run();
    keptChanges_ = changes();
    addForm_.onAdded([this] { keepLists(); });
    addToFavourites_.onAdded([this] { keepLists(); });
    scheduleSync_.onRebuilt([this] { keepLists(); });
    totals_.ShowTotals();
    SetCurrentTab(platform_.tabs.currentTab());
    AfterTabShown();
    return true;
}

// Coming back from a box of the program itself is not the user's coming to the window.
void MainForm::windowGotFocus(CameFrom from) {
    if (from == CameFrom::Elsewhere) {
        Form_GotFocus();
    }
}

void MainForm::Form_GotFocus() {
    // The window takes no input during a download; its status stays.
    if (!scheduleSync_.isDownloading()) {
        totals_.ShowTotals();
    }
}

void MainForm::Form_Unload() {
    if (std::exchange(isUnloaded_, true)) {
        return;
    }
    if (!SkipSaveOnExit_) {
        keepLists();
        saver_.SaveLists();
        if (cellEditing_.isEditing()) {
            // The close box takes no focus: what was typed is committed here. The lists are safe already,
            // should the system end the program while a refused text has its message on screen.
            lostFocus();
            saver_.SaveLists();
        }
        endRecovery();
    }
    findDiskDriver_.ClearFileAttributes(workingCopies_.UserFilePath);
    platform_.addFormView.destroy();
}

// What could not be saved waits for the next start.
void MainForm::endRecovery() {
    if (saver_.ListsSaved()) {
        recovery_.discard();
    } else {
        recovery_.keep(saver_.compose());
    }
}

void MainForm::keepLists() {
    const std::uint64_t now = changes();
    if (now != keptChanges_ && recovery_.keep(saver_.compose())) {
        keptChanges_ = now;
    }
}

std::uint64_t MainForm::changes() const {
    return drmLV_.changes() + amLV_.changes() + fmLV_.changes() + favLV_.changes();
}

void MainForm::QuitApplication() {
    platform_.mainWindow.close();
    addForm_.close();
}

void MainForm::AddSelectedToFavourites() { addToFavourites_.AddSelectedToFavourites(); }

void MainForm::tabClicked() {
    // First of all: an edit that loses the focus would be committed.
    if (cellEditing_.isEditing()) {
        cellEditing_.hideEditBox();
    }
    tabGotFocus();
    AfterTabShown();
    // Who goes through the tabs by the arrow keys stays on their strip.
    if (const int tab = platform_.tabs.currentTab(); isListTab(tab) && !platform_.tabs.hasFocus()) {
        platform_.gridViews[static_cast<std::size_t>(tab)]->takeFocus();
    }
}

void MainForm::tabGotFocus() {
    totals_.ShowTotals();
    SetCurrentTab(platform_.tabs.currentTab());
}

void MainForm::enterPressed() {
    cellEditing_.enterPressed();
    keepLists();
}

void MainForm::lostFocus() {
    cellEditing_.lostFocus();
    keepLists();
}

void MainForm::viewChanged() {
    // A view may also move in the middle of a command, with the lists half done: nothing to keep then.
    if (cellEditing_.isEditing()) {
        cellEditing_.viewChanged();
        keepLists();
    }
}

bool MainForm::LV_KeyDown(ListKind kind, int key, int shift) {
    run(commandForKey(kind, stationLists().grid(kind), key, shift), kind);
    keepLists();
    return keepsKeyFromGrid(key, shift);
}

void MainForm::LV_RightButton(ListKind kind, double x, double y) {
    cellEditing_.setLastMouseX(x, y);
    showPopup(kind, x, y);
}

void MainForm::LV_DblClick(ListKind kind) {
    cellEditing_.startEdit(kind);
    keepLists();
}

void MainForm::LV_HeaderClick(ListKind kind, std::u16string_view key) {
    cellEditing_.viewChanged();  // a header takes no focus; the rows are about to move under the box
    sortListview_.headerClicked(stationLists()[kind], key);
    keepLists();
}

void MainForm::showPopup(ListKind kind, double x, double y) {
    enableMenuItems(platform_.popupMenu, kind, stationLists().grid(kind));
    platform_.popupMenu.show(static_cast<int>(kind), x, y);
}

void MainForm::run(Command command, ListKind kind) {
    switch (command) {
        case Command::None:
            break;
        case Command::DeleteSelected:
            deleteCommands_.deleteSelected(kind);
            break;
        case Command::Edit:
            cellEditing_.startEdit(kind);
            break;
        case Command::AddNew:
            AddNew_Click();
            break;
        case Command::LoadFromReceiver:
            LoadFromReceiver_Click();
            break;
        case Command::SyncInternet:
            SyncInternet_Click();
            break;
        case Command::SaveToReceiver:
            SaveToReceiver_Click();
            break;
        case Command::AddToFavourites:
            AddTo_Click();
            break;
        case Command::PreviousColumn:
            cellEditing_.moveColumn(kind, -1);
            break;
        case Command::NextColumn:
            cellEditing_.moveColumn(kind, 1);
            break;
    }
}

void MainForm::menuChosen(MenuItem item) {
    switch (item) {
        case MenuItem::Edt:
            Edt_Click();
            break;
        case MenuItem::Del:
            Del_Click();
            break;
        case MenuItem::AddNew:
            AddNew_Click();
            break;
        case MenuItem::AddTo:
            AddTo_Click();
            break;
        case MenuItem::SyncInternet:
            SyncInternet_Click();
            break;
        case MenuItem::LoadFromReceiver:
            LoadFromReceiver_Click();
            break;
        case MenuItem::SaveToReceiver:
            SaveToReceiver_Click();
            break;
        case MenuItem::DeleteAll:
            DeleteAll_Click();
            break;
    }
    keepLists();
}

void MainForm::Edt_Click() {
    if (const int tab = platform_.tabs.currentTab(); isListTab(tab)) {
        cellEditing_.startEdit(static_cast<ListKind>(tab));
    }
}

void MainForm::Del_Click() {
    if (const int tab = platform_.tabs.currentTab(); isListTab(tab)) {
        deleteCommands_.deleteSelected(static_cast<ListKind>(tab));
    }
}

void MainForm::AddNew_Click() { addForm_.open(); }

void MainForm::AddTo_Click() { AddSelectedToFavourites(); }

void MainForm::SyncInternet_Click() { scheduleSync_.SyncDrmSchedule(); }

void MainForm::LoadFromReceiver_Click() { receiverCopies_.ReloadFromReceiver(); }

void MainForm::SaveToReceiver_Click() { receiverCopies_.SaveToReceiver(); }

void MainForm::DeleteAll_Click() { deleteCommands_.DeleteAll_Click(); }
