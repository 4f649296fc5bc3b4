#include "adding/AddToFavourites.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace {

struct FavouriteForm {
    std::u16string_view unit;
    std::u16string_view system;
};

// By ListKind.
constexpr std::array<FavouriteForm, 3> kForms = {{{u"  kHz", u"DRM"}, {u"  kHz", u"AM"}, {u"  MHz", u"FM"}}};

bool canBeSource(int tab) { return tab >= 0 && tab < static_cast<int>(kForms.size()); }

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
    if (!copySelected(source)) {
        sayFull();
    }
    lists_.view(source).takeFocus();
}

bool AddToFavourites::copySelected(ListKind source) {
    const FavouriteForm& form = kForms[static_cast<std::size_t>(source)];
    const Grid& from = lists_.grid(source);
    Grid& favourites = lists_.grid(ListKind::Favourite);
    for (int row = 1; row <= from.rowCount(); ++row) {
        if (!from.isSelected(row)) {
            continue;
        }
        if (isFull()) {
            return false;
        }
        std::u16string frequency(from.text(row, 2));
        frequency += form.unit;
        favourites.appendRow({std::u16string(from.text(row, 1)), frequency, std::u16string(form.system)});
    }
    return true;
}

void AddToFavourites::sayFull() { messages_.show(u"Max number of each list is 256!"); }
