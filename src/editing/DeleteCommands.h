// Deletes the selected rows of a list, or all of them. Files change at the next save only.
#pragma once

#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

class DeleteCommands {
public:
    DeleteCommands(StationLists lists, TabControl& tabs, mMsgBox& messages, Totals& totals)
        : lists_(lists), tabs_(tabs), messages_(messages), totals_(totals) {}

    // Removes the selected rows without asking and gives the focus back to the grid; the total in the status
    // bar stays as it was. An empty list gets a message instead.
    void deleteSelected(ListKind kind);
    void DeleteSelectedDrm() { deleteSelected(ListKind::Drm); }
    void DeleteSelectedAm() { deleteSelected(ListKind::Am); }
    void DeleteSelectedFm() { deleteSelected(ListKind::Fm); }
    void DeleteSelectedFav() { deleteSelected(ListKind::Favourite); }

    // Empties the list of the tab shown after a question; shows its total in every case.
    void DeleteAll_Click();

private:
    void deleteAll(ListKind kind);

    StationLists lists_;
    TabControl& tabs_;
    mMsgBox& messages_;
    Totals& totals_;
};
