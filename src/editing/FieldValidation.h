// Checks the text typed into a cell by the rules of its list and column, and stores it if it passes.
#pragma once

#include <string_view>

#include "editing/EditState.h"
#include "messages/mMsgBox.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

class FieldValidation {
public:
    // All references outlive this object. The edit state holds row and column.
    FieldValidation(StationLists lists, TabControl& tabs, const EditState& edit, mMsgBox& messages)
        : lists_(lists), tabs_(tabs), edit_(edit), messages_(messages) {}

    // Commits to the current tab's list, then gives the focus to that grid. A text that breaks a rule is reported in
    // one message and changes no cell. Nothing outside the four list tabs.
    void commitEdit(std::u16string_view text);

private:
    void validate(std::u16string_view text, ListKind kind);

    StationLists lists_;
    TabControl& tabs_;
    const EditState& edit_;
    mMsgBox& messages_;
};
