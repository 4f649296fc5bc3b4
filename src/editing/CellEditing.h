// Edits a grid cell in place: finds the cell under the pointer, places the edit box over it, and ends the edit.
#pragma once

#include <string>

#include "editing/ColumnWidths.h"
#include "editing/EditState.h"
#include "editing/FieldValidation.h"
#include "platform/EditBox.h"
#include "platform/StatusBar.h"
#include "platform/TabControl.h"
#include "storage/stations/StationLists.h"

struct EditControls {
    TabControl& tabs;
    EditBox& box;
    StatusBar& statusBar;
};

class CellEditing {
public:
    // Twips from the top of the client area to the rows and header of a grid. Used instead of the top of the tab
    // control, which is not added.
    static constexpr double kTopInset = 145;

    // All references outlive this object; the validation reads the same edit state.
    CellEditing(StationLists lists, EditControls controls, FieldValidation& validation, EditState& edit)
        : lists_(lists),
          tabs_(controls.tabs),
          box_(controls.box),
          statusBar_(controls.statusBar),
          validation_(validation),
          edit_(edit),
          widths_(lists) {}

    // Takes the pointer position over a grid, in twips; y is ignored.
    void setLastMouseX(double x, double y);
    // Opens the box over the cell of the first selected row at the last pointer position. Nothing without a selected
    // row, outside the columns, or on a column that is not editable. An open edit is committed first.
    void startEdit(ListKind kind);
    // Commits and hides the box; without a commit if another tab is shown than that of the edit. Nothing if no edit is
    // open.
    void commit();
    void hideEditBox();  // ends an edit without a commit
    void itemClicked();  // a click on a row, after the loss of focus that it causes
    bool isEditing() const { return editing_; }
    void columnDragged(ListKind kind) { widths_.dragged(kind); }
    void gridResized(ListKind kind) { widths_.resized(kind); }

    // Moves the last pointer position to the middle of the next (step 1) or previous (step -1) editable column, if
    // there is one: the arrow keys select the cell that Enter edits.
    void moveColumn(ListKind kind, int step);

private:
    void findColumn(const Grid& grid, double rowLeft);
    std::u16string boxText(const Grid& grid, const ListColumn& column) const;
    void showEditBox(double left, double top, double width, double height, std::u16string_view text);

    StationLists lists_;
    TabControl& tabs_;
    EditBox& box_;
    StatusBar& statusBar_;
    FieldValidation& validation_;
    EditState& edit_;
    ColumnWidths widths_;
    // Not the visibility of the box, which stays visible during a commit, while a message box takes the focus.
    bool editing_ = false;
    ListKind edited_ = ListKind::Drm;  // the list of the open edit
};
