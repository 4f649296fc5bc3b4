#include "ctl/schedules/HfccReader.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "ctl/schedules/Fields.h"

namespace {

// 0-based columns of a line, in bytes.
struct Columns {
    std::size_t first;
    std::size_t end;
};
constexpr Columns kFrequency{0, 5};
constexpr Columns kStart{6, 10};
constexpr Columns kStop{11, 15};
constexpr Columns kZones{16, 46};
constexpr Columns kDays{72, 79};
constexpr Columns kFirstDate{80, 86};
constexpr Columns kLastDate{87, 93};
constexpr Columns kModulation{94, 95};
constexpr Columns kBroadcaster{117, 120};

constexpr std::string_view kDrm = "N";

std::string_view in(std::string_view line, Columns columns) {
    return line.size() < columns.first ? std::string_view()
                                       : withoutBlanks(line.substr(columns.first, columns.end - columns.first));
}

using Names = std::map<std::string, std::string_view, std::less<>>;

Names namesOf(std::string_view broadcasters) {
    constexpr std::size_t kCodeLength = kBroadcaster.end - kBroadcaster.first;
    Names names;
    while (!broadcasters.empty()) {
        const std::string_view line = takeLine(broadcasters);
        if (line.size() > kCodeLength && !line.starts_with(';')) {
            names.emplace(withoutBlanks(line.substr(0, kCodeLength)), withoutBlanks(line.substr(kCodeLength)));
        }
    }
    return names;
}

// ddmmyy as a number that increases with the date.
std::optional<int> dateOf(std::string_view ddmmyy) {
    if (!areDigits(ddmmyy, 6)) {
        return std::nullopt;
    }
    return (numberOf(ddmmyy.substr(4)) * 100 + numberOf(ddmmyy.substr(2, 2))) * 100 + numberOf(ddmmyy.substr(0, 2));
}

bool isInSeason(std::string_view line, const UtcTime& today) {
    const int now = (today.year % 100 * 100 + today.month) * 100 + today.day;
    return dateOf(in(line, kFirstDate)).value_or(now) <= now && now <= dateOf(in(line, kLastDate)).value_or(now);
}

// In `digits` 1 is Sunday.
unsigned daysOf(std::string_view digits) {
    unsigned days = 0;
    for (const char digit : digits) {
        if (digit >= '1' && digit <= '7') {
            days |= 1U << static_cast<unsigned>((digit - '1' + 6) % 7);
        }
    }
    return days == 0 ? kEveryDay : days;
}

std::optional<ScheduleEntry> entryOf(std::string_view line, const Names& names) {
    const auto frequency = wholeKilohertz(in(line, kFrequency));
    const std::string_view start = in(line, kStart);
    const std::string_view stop = in(line, kStop);
    const std::string_view code = in(line, kBroadcaster);
    if (!frequency || !isTimeOfDay(start) || !isTimeOfDay(stop) || code.empty()) {
        return std::nullopt;
    }
    const auto name = names.find(code);
    const std::string_view zones = in(line, kZones);
    ScheduleEntry entry;
    entry.programme = fromLatin1(name == names.end() || name->second.empty() ? code : name->second);
    entry.frequency = *frequency;
    entry.target = zones.empty() ? u"-" : fromLatin1(zones);
    entry.days = daysOf(in(line, kDays));
    setSpan(entry, start, stop);
    entry.isDrm = in(line, kModulation) == kDrm;
    return entry;
}

}  // namespace

ScheduleEntries readHfcc(std::string_view bytes, std::string_view broadcasters, const UtcTime& today) {
    const Names names = namesOf(broadcasters);
    ScheduleEntries result;
    while (!bytes.empty()) {
        const std::string_view line = takeLine(bytes);
        if (withoutBlanks(line).empty() || line.starts_with(';')) {
            continue;
        }
        auto entry = entryOf(line, names);
        if (!entry) {
            ++result.skippedLines;
        } else if (!isInSeason(line, today)) {
            ++result.outOfSeason;
        } else {
            result.entries.push_back(std::move(*entry));
        }
    }
    // A text in another format has no line of this form.
    result.isSchedule = !result.entries.empty() || result.outOfSeason > 0;
    return result;
}
