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

    // Copies from the current tab's list, top to bottom, up to 256 favourites; then a message. The total is shown
    // before the copy and is not updated by it. Nothing on tabs other than DRM, AM and FM.
    void AddSelectedToFavourites();
    // The listener is called after the copy, even if the list became full, and before any message.
    void onAdded(std::function<void()> listener) { added_ = std::move(listener); }

private:
    // False if the Favourite list became full before the last selected row.
    bool copySelected(ListKind source);
    bool isFull() { return lists_.grid(ListKind::Favourite).rowCount() >= kMaxRecords; }
    void sayFull();

    StationLists lists_;
    TabControl& tabs_;
    Totals& totals_;
    mMsgBox& messages_;
    std::function<void()> added_ = [] {};
};
