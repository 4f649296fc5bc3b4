// Copies the selected stations of the DRM, AM or FM list into the Favourite list.
#pragma once

#include <functional>
#include <utility>

#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

class AddToFavourites {
public:
    AddToFavourites(StationLists lists, TabControl& tabs, Totals& totals, mMsgBox& messages)
        : lists_(lists), tabs_(tabs), totals_(totals), messages_(messages) {}

    // From the list of the tab shown, top to bottom, up to 256 favourites; then a message. The total is shown
    // before anything changes, so it stays as it was. Nothing on any tab but DRM, AM and FM.
    void AddSelectedToFavourites();
    // Called after the selected rows have been copied, as far as they fit, and before any message.
    void onAdded(std::function<void()> listener) { added_ = std::move(listener); }

private:
    // False when the Favourite list was full before the last selected row.
    bool copySelected(ListKind source);
    bool isFull() { return lists_.grid(ListKind::Favourite).rowCount() >= kMaxRecords; }
    void sayFull();

    StationLists lists_;
    TabControl& tabs_;
    Totals& totals_;
    mMsgBox& messages_;
    std::function<void()> added_ = [] {};
};
