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
      receiverFiles_(findDiskDriver_, ReceiverRoot_, platform.files, backup_),
      recovery_(platform.programFolder, platform.files),
      receiverCopies_(stationLists(), listStorage(), receiverFiles_, {msgBox_, totals_}, platform.files),
      keptLists_({&drmLV_, &amLV_, &fmLV_, &favLV_}, saver_, recovery_),
      startUp_(listStorage(), receiverCopies_, findDiskDriver_, {platform.files, platform.codePages}),
      validation_(stationLists(), platform.tabs, editState_, msgBox_),
      cellEditing_(stationLists(), {platform.tabs, platform.editBox, platform.statusBar}, validation_, editState_),
      rightClick_(stationLists(), cellEditing_),
      deleteCommands_(stationLists(), platform.tabs, msgBox_, totals_),
      sortListview_(platform.textCompare),
      addForm_(platform.addFormView, platform.mainWindow, currentTab_, stationLists(), {msgBox_, totals_}),
      addToFavourites_(stationLists(), platform.tabs, totals_, msgBox_),
      scheduleSync_(drmLV_, {platform.files, platform.codePages}, platform.httpClient, platform.statusBar,
                    {msgBox_, totals_}, platform.programFolder) {
    StationLists lists = stationLists();
    for (int tab = 0; tab < kListCount; ++tab) {
        const StationList& list = lists[static_cast<ListKind>(tab)];
        list.view->attach(list.grid, gridEvents_[static_cast<std::size_t>(tab)]);
    }
}

StationLists MainForm::stationLists() {
    return StationLists({StationList{ListKind::Drm, drmLV_, *platform_.gridViews[0]},
                         StationList{ListKind::Am, amLV_, *platform_.gridViews[1]},
                         StationList{ListKind::Fm, fmLV_, *platform_.gridViews[2]},
                         StationList{ListKind::Favourite, favLV_, *platform_.gridViews[3]}});
}

std::optional<ListKind> MainForm::shownList() const {
    const int tab = platform_.tabs.currentTab();
    return isListTab(tab) ? std::optional(static_cast<ListKind>(tab)) : std::nullopt;
}

bool MainForm::Form_Load() {
    if (platform_.singleInstance.previousInstance()) {
        // The window has no listener yet, so closing it does not save over the other instance's files.
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
    keptLists_.startFromHere();
    // These commands end with a message box or an open dialog: the guard around them would keep the lists only after
    // the user has closed it.
    addForm_.onAdded([this] { keptLists_.keep(); });
    addToFavourites_.onAdded([this] { keptLists_.keep(); });
    scheduleSync_.onRebuilt([this] { keptLists_.keep(); });
    totals_.ShowTotals();
    currentTab_.SetCurrentTab(platform_.tabs.currentTab());
    AfterTabShown();
    return true;
}

// Focus returning from a box of this program is not a user activation.
void MainForm::windowGotFocus(CameFrom from) {
    if (from == CameFrom::Elsewhere) {
        Form_GotFocus();
    }
}

void MainForm::Form_GotFocus() {
    // The window takes no input during a download, and its status message stays.
    if (!scheduleSync_.isDownloading()) {
        totals_.ShowTotals();
    }
}

void MainForm::Form_Unload() {
    if (std::exchange(isUnloaded_, true)) {
        return;
    }
    if (!SkipSaveOnExit_) {
        keptLists_.save();
        if (cellEditing_.isEditing()) {
            // The close box takes no focus, so the open edit is committed here. The lists have been saved before, in
            // case the system ends the program while the message about a refused text is open.
            commitEdit();
            keptLists_.save();
        }
        keptLists_.end();
    }
    findDiskDriver_.ClearFileAttributes(workingCopies_.UserFilePath);
    platform_.addFormView.destroy();
}

void MainForm::QuitApplication() {
    platform_.mainWindow.close();
    addForm_.close();
}

void MainForm::AddSelectedToFavourites() { addToFavourites_.AddSelectedToFavourites(); }

void MainForm::tabClicked() {
    // Discard the edit first: a loss of focus would commit it.
    if (cellEditing_.isEditing()) {
        cellEditing_.hideEditBox();
    }
    tabGotFocus();
    AfterTabShown();
    // Keep focus on the tab bar while arrow keys switch tabs.
    if (const auto kind = shownList(); kind && !platform_.tabs.hasFocus()) {
        stationLists().view(*kind).takeFocus();
    }
}

void MainForm::tabGotFocus() {
    totals_.ShowTotals();
    currentTab_.SetCurrentTab(platform_.tabs.currentTab());
}
