#include "editing/DeleteCommands.h"

namespace {

constexpr std::u16string_view kNoList = u"No List";
constexpr std::u16string_view kDeleteAllTitle = u"Delete all List";

}  // namespace

void DeleteCommands::deleteSelected(ListKind kind) {
    Grid& grid = lists_.grid(kind);
    if (grid.rowCount() < 1) {
        messages_.show(kNoList);
        return;
    }
    grid.removeSelectedRows();
    lists_.view(kind).takeFocus();
}

void DeleteCommands::DeleteAll_Click() {
    const int tab = tabs_.currentTab();
    if (isListTab(tab)) {
        deleteAll(static_cast<ListKind>(tab));
    }
    totals_.ShowTotals();
}

// An empty DRM list is answered with "No List"; the other lists answer a cancelled question with it.
void DeleteCommands::deleteAll(ListKind kind) {
    Grid& grid = lists_.grid(kind);
    if (grid.rowCount() < 1) {
        if (kind == ListKind::Drm) {
            messages_.show(kNoList, BoxStyle::Ok, kDeleteAllTitle);
        }
        return;
    }
    const int answer =
        messages_.show(u"All list will be deleted and can't be recovered", BoxStyle::OkCancel, kDeleteAllTitle);
    if (answer == BoxAnswer::Ok) {
        grid.clear();
    } else if (kind != ListKind::Drm) {
        messages_.show(kNoList, BoxStyle::Ok, kDeleteAllTitle);
    }
}
