#include "editing/FieldValidation.h"

#include <algorithm>
#include <optional>
#include <string>

#include "storage/stations/Bands.h"
#include "storage/stations/FieldLimits.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

namespace {

// The list whose rules apply: for a favourite, the list of the first system that its System cell names; nullopt if it
// names none.
std::optional<ListKind> rulesFor(ListKind kind, const Grid& grid) {
    if (kind != ListKind::Favourite) {
        return kind;
    }
    const std::u16string_view cell = grid.text(grid.firstSelected(), kSystemColumn);
    for (const ListKind system : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        if (cell.find(ReceptionSystem::typeOf(system)) != cell.npos) {
            return system;
        }
    }
    return std::nullopt;
}

// The message of the first rule that the text breaks; empty if it breaks none.
std::u16string_view firstFault(std::u16string_view text, int column, ListKind rules) {
    constexpr std::u16string_view kNotANumber = u"Please input (0-9)";
    if (const std::u16string_view fault = blankFault(text); !fault.empty()) {
        return fault;
    }
    // Before the column is checked: programmes of the FM list cannot contain two points either.
    const bool allowsPoint = rules == ListKind::Fm;
    if (allowsPoint && std::count(text.begin(), text.end(), u'.') > 1) {
        return kNotANumber;
    }
    if (column != kFrequencyColumn) {
        return {};
    }
    if (text.find_first_not_of(allowsPoint ? u"0123456789." : u"0123456789") != text.npos) {
        return kNotANumber;
    }
    return rangeFault(rules, leadingNumber(text));
}

}  // namespace

void FieldValidation::commitEdit(std::u16string_view text) {
    const int tab = tabs_.currentTab();
    if (!isListTab(tab)) {
        return;
    }
    const auto kind = static_cast<ListKind>(tab);
    validate(text, kind);
    lists_.view(kind).takeFocus();
}

void FieldValidation::validate(std::u16string_view text, ListKind kind) {
    Grid& grid = lists_.grid(kind);
    const std::optional<ListKind> rules = rulesFor(kind, grid);
    if (!rules) {
        return;
    }
    const int column = edit_.editColumn;
    if (const std::u16string_view fault = firstFault(text, column, *rules); !fault.empty()) {
        messages_.show(fault);
        return;
    }
    std::u16string stored(text);
    if (column == kFrequencyColumn && kind == ListKind::Favourite) {
        stored += ReceptionSystem::unitOf(ReceptionSystem::typeOf(*rules));
    }
    grid.setText(edit_.editRow, column, std::move(stored));
    if (column == kFrequencyColumn && kind == ListKind::Am) {
        grid.setText(edit_.editRow, kBandColumn, std::u16string(Bands::ofEditedCell(leadingNumber(text))));
    }
}
