#include "ctl/Record.h"

#include <algorithm>

#include "storage/stations/Bands.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr std::size_t kTimeLength = 5;  // hh:mm

bool isSpan(std::u16string_view time) { return time.size() == 2 * kTimeLength + 1 && time[kTimeLength] == u'-'; }

std::u16string kilohertz(std::u16string_view megahertz) {
    return shortestDecimal(kilohertzOf(leadingNumber(megahertz)));
}

std::u16string megahertz(std::u16string_view kilohertz) { return shortestDecimal(leadingNumber(kilohertz) / 1000); }

std::u16string favouriteFrequency(std::u16string_view cell, std::u16string_view system) {
    cell.remove_suffix(std::min(cell.size(), ReceptionSystem::kUnitLength));
    return ReceptionSystem::isFm(system) ? kilohertz(cell) : std::u16string(cell);
}

}  // namespace

Record recordOf(const Grid& grid, ListKind kind, int row) {
    Record record;
    record.programme = grid.text(row, 1);
    switch (kind) {
        case ListKind::Drm: {
            record.frequency = grid.text(row, 2);
            const std::u16string_view time = grid.text(row, 3);
            record.start = isSpan(time) ? time.substr(0, kTimeLength) : time;
            record.stop = isSpan(time) ? time.substr(kTimeLength + 1) : std::u16string_view();
            record.target = grid.text(row, 4);
            break;
        }
        case ListKind::Am:
            record.frequency = grid.text(row, 2);
            break;
        case ListKind::Fm:
            record.frequency = kilohertz(grid.text(row, 2));
            break;
        case ListKind::Favourite:
            record.system = grid.text(row, 3);
            record.frequency = favouriteFrequency(grid.text(row, 2), record.system);
            break;
    }
    return record;
}

std::optional<std::u16string> timeSpanOf(std::u16string_view start, std::u16string_view stop) {
    std::u16string digits;
    for (const std::u16string_view time : {start, stop}) {
        if (time.size() != kTimeLength || time[2] != u':') {
            return std::nullopt;
        }
        (digits += time.substr(0, 2)) += time.substr(3);
    }
    return timeSpan(digits);
}

void appendRecord(Grid& grid, ListKind kind, const Record& record) {
    switch (kind) {
        case ListKind::Drm: {
            std::u16string time(record.start);
            (time += u'-') += record.stop;
            grid.appendRow({record.programme, record.frequency, time, record.target});
            break;
        }
        case ListKind::Am:
            grid.appendRow({record.programme, record.frequency, Bands::ofNewRecord(leadingNumber(record.frequency))});
            break;
        case ListKind::Fm:
            grid.appendRow({record.programme, megahertz(record.frequency), Bands::kVhf});
            break;
        case ListKind::Favourite: {
            std::u16string frequency =
                ReceptionSystem::isFm(record.system) ? megahertz(record.frequency) : record.frequency;
            frequency += ReceptionSystem::unitOf(record.system);
            grid.appendRow({record.programme, frequency, record.system});
            break;
        }
    }
}
