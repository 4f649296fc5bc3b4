#include "storage/stations/ListColumns.h"

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
    if (list.view != nullptr) {
        applyStandardWidths(list);
    }
}

std::vector<double> standardWidths(StationList& list) {
    const double width = list.view->geometry(0).width;
    if (list.kind == ListKind::Drm) {
        return {width / 5, width / 5, width / 5, width / 3};
    }
    return {width / 3.1, width / 3.1, width / 3.1};
}

void applyStandardWidths(StationList& list) {
    int column = 0;
    for (const double width : standardWidths(list)) {
        list.grid.setColumnWidth(++column, width);
    }
}
