// The main window: owns the four lists and the window's state, and passes each event to the class that handles it. Only
// a main program includes this file.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "adding/AddToFavourites.h"
#include "adding/addForm.h"
#include "editing/CellEditing.h"
#include "editing/DeleteCommands.h"
#include "editing/EditState.h"
#include "editing/FieldValidation.h"
#include "editing/ListCommands.h"
#include "editing/RightClick.h"
#include "editing/SortListview.h"
#include "messages/CurrentTab.h"
#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "platform/EditBox.h"
#include "platform/GridView.h"
#include "platform/MainWindow.h"
#include "platform/Platform.h"
#include "platform/PopupMenu.h"
#include "platform/TabControl.h"
#include "receiver/ReceiverCopies.h"
#include "receiver/ReceiverFiles.h"
#include "receiver/mFindDiskDriver.h"
#include "shell/KeptLists.h"
#include "shell/StartUp.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Backup.h"
#include "storage/recovery/Recovery.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"
#include "sync/ScheduleSync.h"

class MainForm : private MainWindowListener, private TabListener, private EditBoxListener, private MenuListener {
public:
    // All references in the bundle outlive the form. The window is built and hidden.
    explicit MainForm(const Platform& platform);
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    // The start-up sequence. False if another instance runs: the window is then closed, no file was touched, and the
    // process should exit silently.
    bool Form_Load();
    void Form_GotFocus();
    // Only the first call has an effect: the end of a session may close a window that is already closing.
    void Form_Unload();
    void QuitApplication();  // an entry point without a caller here
    void AddSelectedToFavourites();

private:
    // Passes the events of one grid on, with the kind of its list.
    class GridEvents : public GridListener {
    public:
        GridEvents(MainForm& form, ListKind kind) : form_(form), kind_(kind) {}
        bool keyDown(int key, int shift) override { return form_.LV_KeyDown(kind_, key, shift); }
        void pointerMoved(double x, double y) override { form_.cellEditing_.setLastMouseX(x, y); }
        void rightPressed(int row, double x, double /*y*/) override { form_.rightClick_.pressed(kind_, row, x); }
        void rightButton(double x, double y) override { form_.LV_RightButton(kind_, x, y); }
        void menuKey(double y) override { form_.showPopup(kind_, form_.editState_.lastMouseX, y); }
        void itemClicked() override { form_.cellEditing_.itemClicked(); }
        void itemDoubleClicked() override { form_.run(Command::Edit); }
        void headerClicked(std::u16string_view key) override { form_.LV_HeaderClick(kind_, key); }
        void columnDragged() override { form_.LV_ColumnDragged(kind_); }
        void resized() override { form_.LV_Resized(kind_); }
        void viewChanged() override { form_.viewChanged(); }

    private:
        MainForm& form_;
        ListKind kind_;
    };

    void windowGotFocus(CameFrom from) override;
    void windowClosing() override { Form_Unload(); }
    void tabClicked() override;
    void tabGotFocus() override;
    void enterPressed() override { commitEdit(); }
    void lostFocus() override { commitEdit(); }
    void menuChosen(MenuItem item) override;

    bool LV_KeyDown(ListKind kind, int key, int shift);
    void LV_RightButton(ListKind kind, double x, double y);
    void LV_HeaderClick(ListKind kind, std::u16string_view key);
    void LV_ColumnDragged(ListKind kind);
    void LV_Resized(ListKind kind);
    void viewChanged();
    void commitEdit();
    void showPopup(ListKind kind, double x, double y);

    void Edt_Click();
    void Del_Click();
    void AddNew_Click();
    void AddTo_Click();
    void SyncInternet_Click();
    void LoadFromReceiver_Click();
    void SaveToReceiver_Click();
    void DeleteAll_Click();

    void PreviousColumn();
    void NextColumn();

    void run(Command command);
    // The list of the current tab; nullopt if the tab control shows none of the four.
    std::optional<ListKind> shownList() const;
    void AfterTabShown() {}  // called when a tab is on screen; nothing to do so far
    StationLists stationLists();
    ListStorage listStorage() { return {workingCopies_, loader_, saver_, recovery_, backup_}; }

    const Platform platform_;
    ReceiverSettings settings_;
    bool SkipSaveOnExit_ = false;
    bool isUnloaded_ = false;
    std::u16string ReceiverRoot_;
    WorkingCopies workingCopies_;
    CurrentTab currentTab_;
    EditState editState_;

    RowStore drmLV_;
    RowStore amLV_;
    RowStore fmLV_;
    RowStore favLV_;
    std::array<GridEvents, kListCount> gridEvents_;

    mMsgBox msgBox_;
    mFindDiskDriver findDiskDriver_;
    Totals totals_;
    ListLoader loader_;
    ListSaver saver_;
    Backup backup_;
    ReceiverFiles receiverFiles_;
    Recovery recovery_;
    ReceiverCopies receiverCopies_;
    KeptLists keptLists_;
    StartUp startUp_;
    FieldValidation validation_;
    CellEditing cellEditing_;
    RightClick rightClick_;
    DeleteCommands deleteCommands_;
    SortListview sortListview_;
    addForm addForm_;
    AddToFavourites addToFavourites_;
    ScheduleSync scheduleSync_;
};
