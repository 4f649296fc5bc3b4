// Checks a typed cell text by the rules of its list and column, and stores it when every rule passes.
#pragma once

#include <string_view>

#include "editing/EditState.h"
#include "messages/mMsgBox.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

class FieldValidation {
public:
    // Holds references only. The edit state tells the row and the column.
    FieldValidation(StationLists lists, TabControl& tabs, const EditState& edit, mMsgBox& messages)
        : lists_(lists), tabs_(tabs), edit_(edit), messages_(messages) {}

    // Commits to the list of the tab shown, then gives the focus back to that list's grid. A text that breaks
    // a rule shows one message and leaves every cell as it was. Nothing outside the four list tabs.
    void commitEdit(std::u16string_view text);

private:
    void validate(std::u16string_view text, ListKind kind);

    StationLists lists_;
    TabControl& tabs_;
    const EditState& edit_;
    mMsgBox& messages_;
};
