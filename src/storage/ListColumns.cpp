#include "storage/ListColumns.h"

#include <string_view>
#include <vector>

namespace {

struct Caption {
    std::u16string_view caption;
    std::u16string_view key;
};

constexpr double kInitialWidth = 1440;  // twips: one inch

std::vector<Caption> captionsOf(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return {
                {u"Programme", u"PROG"}, {u"Frequency(kHz)", u"FREQ"}, {u"Time(UTC)", u"TIME"}, {u"Target", u"TARG"}};
        case ListKind::Am:
            return {{u"Programme", u"PROG"}, {u"Frequency(kHz)", u"FREQ"}, {u"Band", u"BAND"}};
        case ListKind::Fm:
            return {{u"Programme", u"PROG"}, {u"Frequency(MHz)", u"FREQ"}, {u"Band", u"BAND"}};
        case ListKind::Favourite:
            return {{u"Programme", u"PROG"}, {u"Frequency", u"FREQ"}, {u"System", u"SYST"}};
    }
    return {};
}

}  // namespace

void addListColumns(StationList& list) {
    for (const Caption& column : captionsOf(list.kind)) {
        list.grid.addColumn(std::u16string(column.caption), std::u16string(column.key), kInitialWidth);
    }
    applyStandardWidths(list);
}

void applyStandardWidths(StationList& list) {
    const double width = list.view.geometry(0).width;
    const int count = static_cast<int>(list.grid.columns().size());
    for (int column = 1; column <= count; ++column) {
        double divisor = 3.1;
        if (list.kind == ListKind::Drm) {
            divisor = column == 4 ? 3 : 5;
        }
        list.grid.setColumnWidth(column, width / divisor);
    }
}
