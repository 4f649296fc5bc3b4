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
      receiverCopies_(stationLists(), workingCopies_, receiverFiles_, loader_, saver_, msgBox_, totals_, platform.files,
                      backup_, recovery_),
      keptLists_({&drmLV_, &amLV_, &fmLV_, &favLV_}, saver_, recovery_),
      startUp_(workingCopies_, receiverCopies_, loader_, saver_, recovery_, backup_, findDiskDriver_, platform.files,
               platform.codePages),
      validation_(stationLists(), platform.tabs, editState_, msgBox_),
      cellEditing_(stationLists(), platform.tabs, platform.editBox, platform.statusBar, validation_, editState_),
      rightClick_(stationLists(), cellEditing_),
      deleteCommands_(stationLists(), platform.tabs, msgBox_, totals_),
      sortListview_(platform.textCompare),
      addForm_(platform.addFormView, platform.mainWindow, currentTab_, stationLists(), totals_, msgBox_),
      addToFavourites_(stationLists(), platform.tabs, totals_, msgBox_),
      scheduleSync_(drmLV_, platform.files, platform.codePages, platform.httpClient, platform.statusBar, totals_,
                    msgBox_, platform.programFolder) {
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
    keptLists_.startFromHere();
    addForm_.onAdded([this] { keptLists_.keep(); });
    addToFavourites_.onAdded([this] { keptLists_.keep(); });
    scheduleSync_.onRebuilt([this] { keptLists_.keep(); });
    totals_.ShowTotals();
    currentTab_.SetCurrentTab(platform_.tabs.currentTab());
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
        keptLists_.save();
        if (cellEditing_.isEditing()) {
            // The close box takes no focus: what was typed is committed here. The lists are safe already,
            // should the system end the program while a refused text has its message on screen.
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
    // First of all: an edit that loses the focus would be committed.
    if (cellEditing_.isEditing()) {
        cellEditing_.hideEditBox();
    }
    tabGotFocus();
    AfterTabShown();
    // The arrow keys move through the tabs on their strip: it keeps the focus then.
    if (const auto kind = shownList(); kind && !platform_.tabs.hasFocus()) {
        stationLists().view(*kind).takeFocus();
    }
}

void MainForm::tabGotFocus() {
    totals_.ShowTotals();
    currentTab_.SetCurrentTab(platform_.tabs.currentTab());
}
