#include "adding/AddToFavourites.h"

#include <string>
#include <string_view>

#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"

namespace {

bool canBeSource(int tab) { return isListTab(tab) && static_cast<ListKind>(tab) != ListKind::Favourite; }

}  // namespace

void AddToFavourites::AddSelectedToFavourites() {
    totals_.ShowTotals();
    const int tab = tabs_.currentTab();
    if (isFull()) {
        sayFull();
        return;
    }
    if (!canBeSource(tab)) {
        return;
    }
    const auto source = static_cast<ListKind>(tab);
    if (lists_.grid(source).rowCount() < 1) {
        return;
    }
    const bool copiedAll = copySelected(source);
    added_();
    if (!copiedAll) {
        sayFull();
    }
    lists_.view(source).takeFocus();
}

bool AddToFavourites::copySelected(ListKind source) {
    const std::u16string_view type = ReceptionSystem::typeOf(source);
    const Grid& from = lists_.grid(source);
    Grid& favourites = lists_.grid(ListKind::Favourite);
    for (int row = 1; row <= from.rowCount(); ++row) {
        if (!from.isSelected(row)) {
            continue;
        }
        if (isFull()) {
            return false;
        }
        std::u16string frequency(from.text(row, kFrequencyColumn));
        frequency += ReceptionSystem::unitOf(type);
        favourites.appendRow({from.text(row, kProgrammeColumn), frequency, type});
    }
    return true;
}

void AddToFavourites::sayFull() { messages_.show(kListFull); }
