// Deletes the selected rows of a list, or all of them. Files change only at the next save.
#pragma once

#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

class DeleteCommands {
public:
    DeleteCommands(StationLists lists, TabControl& tabs, mMsgBox& messages, Totals& totals)
        : lists_(lists), tabs_(tabs), messages_(messages), totals_(totals) {}

    // Removes the selected rows without a question and gives the focus to the grid; the total in the status bar is not
    // updated. An empty list gets a message instead.
    void deleteSelected(ListKind kind);
    // Entry points without a caller here.
    void DeleteSelectedDrm() { deleteSelected(ListKind::Drm); }
    void DeleteSelectedAm() { deleteSelected(ListKind::Am); }
    void DeleteSelectedFm() { deleteSelected(ListKind::Fm); }
    void DeleteSelectedFav() { deleteSelected(ListKind::Favourite); }

    // Empties the current tab's list after a question; updates its total in every case.
    void DeleteAll_Click();

private:
    void deleteAll(ListKind kind);

    StationLists lists_;
    TabControl& tabs_;
    mMsgBox& messages_;
    Totals& totals_;
};
