#include "sync/ScheduleRecords.h"

#include <algorithm>
#include <optional>
#include <string>

#include "storage/stations/ListColumns.h"
#include "storage/text/Numbers.h"

namespace {

constexpr double kHighestFrequency = 30'000;  // kHz
constexpr std::size_t kTimeLength = 4;        // hhmm
constexpr int kLastHourOfStart = 23;
constexpr int kLastHourOfEnd = 24;  // a broadcast may end at 2400
constexpr int kLastMinute = 59;
// The receiver holds 256 stations; one more is added to show that the schedule had more than fit.
constexpr int kMostNewStations = 256;

std::u16string_view keyOf(std::size_t fieldIndex) {
    switch (fieldIndex) {
        case ScheduleField::Time:
            return u"StartStopTimeUTC=";
        case ScheduleField::Frequency:
            return u"Frequency=";
        case ScheduleField::Target:
            return u"Target=";
        case ScheduleField::Programme:
            return u"Programme=";
        default:
            return {};
    }
}

bool areDigits(std::u16string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

int twoDigits(std::u16string_view digits) { return (digits[0] - u'0') * 10 + (digits[1] - u'0'); }

bool isFrequency(std::u16string_view text) { return areDigits(text) && leadingNumber(text) <= kHighestFrequency; }

bool isTimeOfDay(std::u16string_view hhmm, int lastHour) {
    return hhmm.size() == kTimeLength && areDigits(hhmm) && twoDigits(hhmm) <= lastHour &&
           twoDigits(hhmm.substr(2)) <= kLastMinute;
}

void appendTime(std::u16string& text, std::u16string_view hhmm) {
    ((text += hhmm.substr(0, 2)) += u':') += hhmm.substr(2);
}

std::u16string recordKey(std::u16string_view frequency, std::u16string_view span, std::u16string_view target) {
    std::u16string key(frequency);
    key += span;
    key += target;
    return key;
}

bool isListed(const Grid& drmLV, std::u16string_view key, int rowCount) {
    for (int row = 1; row <= rowCount; ++row) {
        if (recordKey(drmLV.text(row, kFrequencyColumn), drmLV.text(row, kTimeColumn),
                      drmLV.text(row, kTargetColumn)) == key) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool isTimeSpan(std::u16string_view start, std::u16string_view stop) {
    return isTimeOfDay(start, kLastHourOfStart) && isTimeOfDay(stop, kLastHourOfEnd) && start < stop;
}

std::optional<std::u16string> timeSpan(std::u16string_view time) {
    if (time.size() < kTimeLength) {
        return std::nullopt;
    }
    const std::u16string_view start = time.substr(0, kTimeLength);
    const std::u16string_view stop = time.substr(time.size() - kTimeLength);
    if (!isTimeSpan(start, stop)) {
        return std::nullopt;
    }
    std::u16string span;
    appendTime(span, start);
    span += u'-';
    appendTime(span, stop);
    return span;
}

std::u16string_view ParseScheduleLine(std::u16string_view line, std::size_t fieldIndex) {
    if (!line.empty() && (line.back() == u'\n' || line.back() == u'\r')) {
        line.remove_suffix(1);
    }
    const std::u16string_view key = keyOf(fieldIndex);
    return line.starts_with(key) ? line.substr(key.size()) : std::u16string_view();
}

bool AddScheduleRecord(Grid& drmLV, const ScheduleFields& fields, int existingRowCount) {
    const std::u16string_view programme = fields[ScheduleField::Programme];
    const std::u16string_view frequency = fields[ScheduleField::Frequency];
    const std::u16string_view target = fields[ScheduleField::Target];
    if (programme.empty() || frequency.empty() || target.empty() || !isFrequency(frequency)) {
        return false;
    }
    const auto span = timeSpan(fields[ScheduleField::Time]);
    if (!span) {
        return false;
    }
    if (existingRowCount > 0 && isListed(drmLV, recordKey(frequency, *span, target), existingRowCount)) {
        return false;
    }
    drmLV.appendRow({programme, frequency, *span, target});
    return true;
}

int AddScheduleRecords(Grid& drmLV, std::u16string_view schedule, int existingRowCount) {
    ScheduleFields fields;
    std::size_t collected = 0;
    int added = 0;
    for (std::size_t end = schedule.find(u'\n'); end != schedule.npos; end = schedule.find(u'\n')) {
        const std::u16string_view line = schedule.substr(0, end);
        schedule.remove_prefix(end + 1);
        if (line.empty()) {
            continue;  // a line of only CR is not skipped: it breaks a record
        }
        const std::u16string_view value = ParseScheduleLine(line, collected);
        if (value.empty()) {
            collected = 0;  // the line that broke the record does not start the next one
            continue;
        }
        fields[collected++] = value;
        if (collected < kScheduleFieldCount) {
            continue;
        }
        collected = 0;
        added += AddScheduleRecord(drmLV, fields, existingRowCount) ? 1 : 0;
        if (added > kMostNewStations) {
            break;
        }
    }
    return added;
}
