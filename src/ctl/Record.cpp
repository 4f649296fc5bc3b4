#include "ctl/Record.h"

#include <algorithm>
#include <array>

#include "storage/stations/Bands.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr std::size_t kTimeLength = 5;  // hh:mm

bool isSpan(std::u16string_view time) { return time.size() == 2 * kTimeLength + 1 && time[kTimeLength] == u'-'; }

bool hasTimeForm(std::u16string_view time) { return time.size() == kTimeLength && time[2] == u':'; }

using Digits = std::array<char16_t, kTimeLength - 1>;
Digits digitsOf(std::u16string_view time) { return {time[0], time[1], time[3], time[4]}; }

std::u16string kilohertz(std::u16string_view megahertz) {
    return shortestDecimal(kilohertzOf(leadingNumber(megahertz)));
}

std::u16string megahertz(std::u16string_view kilohertz) { return shortestDecimal(leadingNumber(kilohertz) / 1000); }

std::u16string favouriteFrequency(std::u16string_view cell, std::u16string_view system) {
    cell.remove_suffix(std::min(cell.size(), ReceptionSystem::kUnitLength));
    return ReceptionSystem::isFm(system) ? kilohertz(cell) : std::u16string(cell);
}

}  // namespace

Record recordOf(ListKind kind, std::span<const std::u16string_view> cells) {
    const auto cell = [cells](int column) { return cells[static_cast<std::size_t>(column - 1)]; };
    Record record;
    record.programme = cell(kProgrammeColumn);
    switch (kind) {
        case ListKind::Drm: {
            record.frequency = cell(kFrequencyColumn);
            const std::u16string_view time = cell(kTimeColumn);
            record.start = isSpan(time) ? time.substr(0, kTimeLength) : time;
            record.stop = isSpan(time) ? time.substr(kTimeLength + 1) : std::u16string_view();
            record.target = cell(kTargetColumn);
            break;
        }
        case ListKind::Am:
            record.frequency = cell(kFrequencyColumn);
            break;
        case ListKind::Fm:
            record.frequency = kilohertz(cell(kFrequencyColumn));
            break;
        case ListKind::Favourite:
            record.system = cell(kSystemColumn);
            record.frequency = favouriteFrequency(cell(kFrequencyColumn), record.system);
            break;
    }
    return record;
}

Record recordOf(const Grid& grid, ListKind kind, int row) {
    std::array<std::u16string_view, kMaxColumns> cells;
    for (int column = 1; column <= kMaxColumns; ++column) {
        cells[static_cast<std::size_t>(column - 1)] = grid.text(row, column);
    }
    return recordOf(kind, cells);
}

bool areTimes(std::u16string_view start, std::u16string_view stop) {
    if (!hasTimeForm(start) || !hasTimeForm(stop)) {
        return false;
    }
    const Digits from = digitsOf(start);
    const Digits to = digitsOf(stop);
    return isTimeSpan({from.data(), from.size()}, {to.data(), to.size()});
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
