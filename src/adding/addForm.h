// The Add List dialog: adds one record to the DRM, AM or FM list.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "adding/FieldRules.h"
#include "messages/CurrentTab.h"
#include "messages/Feedback.h"
#include "platform/AddFormView.h"
#include "platform/MainWindow.h"
#include "storage/stations/StationLists.h"

class addForm : private AddFormListener {
public:
    // All references outlive this object.
    addForm(AddFormView& view, MainWindow& mainWindow, const CurrentTab& currentTab, StationLists lists,
            Feedback feedback)
        : view_(view),
          mainWindow_(mainWindow),
          currentTab_(currentTab),
          lists_(lists),
          totals_(feedback.totals),
          messages_(feedback.messages) {}

    // The listener is called after each record added, while the dialog is still open.
    void onAdded(std::function<void()> listener) { added_ = std::move(listener); }

    // Updates the total, then opens the dialog for the current list and disables the main window. A full list, and
    // always the Favourite list, gets a message instead. Nothing if the dialog is already open.
    void open();
    // Closes without adding a record, enables the main window and shows the total of the current tab. Nothing if the
    // dialog is closed.
    void close();

private:
    bool keyPressed(AddField field, int characterCode) override;
    void saveClicked() override { save(); }
    void cancelClicked() override { close(); }
    void closeBoxClicked() override { close(); }

    // The current list, to which the dialog adds.
    ListKind kind() const { return static_cast<ListKind>(currentTab_.GetCurrentTab()); }
    bool hasRoom();
    void load();
    void fillTimeCombos();
    void save();
    // Each validates and appends; false if a message was shown instead.
    bool saveDrm(const std::u16string& programme, const std::u16string& frequency);
    bool saveAm(const std::u16string& programme, const std::u16string& frequency);
    bool saveFm(const std::u16string& programme, const std::u16string& frequency);
    // Shows the field's message if its text is not valid.
    bool isValid(const FieldRule& rule, std::u16string_view text);
    void say(std::u16string_view prefix, std::u16string_view message);

    AddFormView& view_;
    MainWindow& mainWindow_;
    const CurrentTab& currentTab_;
    StationLists lists_;
    Totals& totals_;
    mMsgBox& messages_;
    std::function<void()> added_ = [] {};
};
