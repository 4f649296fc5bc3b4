#include "ctl/schedules/EibiReader.h"

#include <algorithm>
#include <array>
#include <optional>

#include "ctl/schedules/Fields.h"

namespace {

constexpr std::size_t kFieldCount = 11;
enum Field : std::size_t {
    kFrequency,
    kTime,
    kDays,
    kCountry,
    kStation,
    kLanguage,
    kTarget,
    kSite,
    kPersistence,
    kStart,
    kStop
};

constexpr std::string_view kInactive = "8";
constexpr int kDaysOfWeek = 7;

using Fields = std::array<std::string_view, kFieldCount>;

// The last field may end with a semicolon; missing fields at the end are empty.
std::optional<Fields> fieldsOf(std::string_view line) {
    constexpr std::size_t kNeeded = kTarget + 1;
    Fields fields;
    std::size_t count = 0;
    while (count < kFieldCount && !line.empty()) {
        const std::size_t end = std::min(line.find(';'), line.size());
        fields[count++] = withoutBlanks(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return count >= kNeeded ? std::optional(fields) : std::nullopt;
}

int dayNamed(std::string_view name) {
    constexpr std::array<std::string_view, kDaysOfWeek> kNames = {"Mo", "Tu", "We", "Th", "Fr", "Sa", "Su"};
    const auto found = std::find(kNames.begin(), kNames.end(), name);
    return found == kNames.end() ? -1 : static_cast<int>(found - kNames.begin());
}

// "1245" (1 is Monday), "Mo-Fr", "SaSu", "Mo,We"; any other text, such as a note, means every day.
unsigned daysOf(std::string_view text) {
    unsigned days = 0;
    if (!text.empty() && text.find_first_not_of("1234567") == text.npos) {
        for (const char digit : text) {
            days |= 1U << static_cast<unsigned>(digit - '1');
        }
        return days;
    }
    int last = -1;
    bool isRange = false;
    while (!text.empty()) {
        if (text.front() == '-' || text.front() == ',') {
            isRange = text.front() == '-' && last >= 0;
            text.remove_prefix(1);
            continue;
        }
        const int day = dayNamed(text.substr(0, 2));
        if (day < 0) {
            return kEveryDay;
        }
        for (int between = isRange ? last : day; between != day; between = (between + 1) % kDaysOfWeek) {
            days |= 1U << static_cast<unsigned>(between);
        }
        days |= 1U << static_cast<unsigned>(day);
        last = day;
        isRange = false;
        text.remove_prefix(2);
    }
    return days == 0 ? kEveryDay : days;
}

// The number of the day if every month had 31 days; nullopt unless the text is ddmm.
std::optional<int> dayOfYear(std::string_view ddmm) {
    constexpr int kMonths = 12;
    constexpr int kMostDays = 31;
    if (!areDigits(ddmm, 4)) {
        return std::nullopt;
    }
    const int day = numberOf(ddmm.substr(0, 2));
    const int month = numberOf(ddmm.substr(2));
    if (day < 1 || day > kMostDays || month < 1 || month > kMonths) {
        return std::nullopt;
    }
    return (month - 1) * kMostDays + day - 1;
}

// The dates have no year. A single date means the nearest such day, within half a year.
bool isInSeason(std::string_view start, std::string_view stop, const UtcTime& today) {
    constexpr int kDaysOfYear = 12 * 31;
    const int now = (today.month - 1) * 31 + today.day - 1;
    const auto first = dayOfYear(start);
    const auto last = dayOfYear(stop);
    const auto from = [](int earlier, int later) { return (later - earlier + kDaysOfYear) % kDaysOfYear; };
    if (first && last) {
        return from(*first, now) <= from(*first, *last);
    }
    if (first) {
        return from(*first, now) < kDaysOfYear / 2;
    }
    return !last || from(now, *last) < kDaysOfYear / 2;
}

std::optional<ScheduleEntry> entryOf(const Fields& fields) {
    constexpr std::size_t kSpanLength = 9;
    const std::string_view time = fields[kTime];
    const auto frequency = wholeKilohertz(fields[kFrequency]);
    if (!frequency || time.size() != kSpanLength || time[4] != '-' || !isTimeOfDay(time.substr(0, 4)) ||
        !isTimeOfDay(time.substr(5)) || fields[kStation].empty()) {
        return std::nullopt;
    }
    ScheduleEntry entry;
    entry.programme = fromWindows1252(fields[kStation]);
    entry.frequency = *frequency;
    entry.target = fields[kTarget].empty() ? u"-" : fromWindows1252(fields[kTarget]);
    entry.days = daysOf(fields[kDays]);
    setSpan(entry, time.substr(0, 4), time.substr(5));
    entry.isDrm = fields[kStation].find("DRM") != fields[kStation].npos;
    return entry;
}

}  // namespace

ScheduleEntries readEibi(std::string_view bytes, const UtcTime& today) {
    ScheduleEntries result;
    result.isSchedule = takeLine(bytes).starts_with("kHz:");
    while (result.isSchedule && !bytes.empty()) {
        const std::string_view line = takeLine(bytes);
        if (withoutBlanks(line).empty()) {
            continue;
        }
        const auto fields = fieldsOf(line);
        auto entry = fields ? entryOf(*fields) : std::nullopt;
        if (!entry) {
            ++result.skippedLines;
        } else if ((*fields)[kPersistence] == kInactive || !isInSeason((*fields)[kStart], (*fields)[kStop], today)) {
            ++result.outOfSeason;
        } else {
            result.entries.push_back(std::move(*entry));
        }
    }
    return result;
}
