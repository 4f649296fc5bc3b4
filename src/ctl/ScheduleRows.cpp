#include "ctl/ScheduleRows.h"

#include <optional>
#include <utility>

#include "ctl/Input.h"
#include "ctl/Messages.h"
#include "ctl/Sources.h"
#include "ctl/TextSearch.h"
#include "ctl/schedules/EibiReader.h"
#include "ctl/schedules/HfccReader.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"
#include "sync/Downloader.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr std::size_t kMostUnits = 10;  // of a programme name that the receiver shows in full
constexpr std::u16string_view kMidnight = u"2400";

bool isAddress(std::u16string_view input) { return input.starts_with(u"http://") || input.starts_with(u"https://"); }

Exit download(Services& services, std::u16string_view address, std::string& bytes) {
    services.progress.begin();
    Downloader downloader(services.httpClient, services.files);
    auto body = downloader.fetch(std::u16string(address));
    services.progress.end();
    if (!body) {
        std::u16string message(address);
        message += u": the download failed";
        if (!downloader.reason().empty()) {
            (message += u": ") += downloader.reason();
        }
        complain(services.console, message);
        return Exit::Download;
    }
    bytes = std::move(*body);
    return Exit::Done;
}

ScheduleFormat formatOf(std::string_view bytes) {
    if (bytes.starts_with(TextFormatBom(TextFormat::Utf8))) {
        bytes.remove_prefix(TextFormatBom(TextFormat::Utf8).size());
    }
    if (bytes.find("[DRMSchedule]") != bytes.npos) {
        return ScheduleFormat::NineLines;
    }
    return bytes.starts_with("kHz:") ? ScheduleFormat::Eibi : ScheduleFormat::Hfcc;
}

// The names of broadcasters, from the file published with the schedule.
std::string broadcastersBeside(Services& services, std::u16string_view input) {
    if (input == u"-" || isAddress(input)) {
        return {};
    }
    const std::u16string path = absolutePath(services.currentFolder, input);
    const std::size_t separator = path.find_last_of(u"/\\");
    const std::u16string names = path.substr(0, separator + 1) + u"broadcas.txt";
    return readWorkingCopy(names, services.files).bytes.value_or("");
}

class Selection {
public:
    Selection(const Options& options, RowStore& rows) : options_(options), rows_(rows) {}

    void add(const ScheduleEntry& entry) {
        if ((options_.drmOnly && !entry.isDrm) || !containsText(entry.target, options_.target)) {
            return;
        }
        if (entry.start < entry.stop) {
            addSpan(entry, entry.days, entry.start, entry.stop);
            return;
        }
        addSpan(entry, entry.days, entry.start, kMidnight);
        addSpan(entry, dayAfter(entry.days), u"0000", entry.stop);
    }

private:
    void addSpan(const ScheduleEntry& entry, unsigned days, std::u16string_view start, std::u16string_view stop) {
        if (options_.day && (days >> static_cast<unsigned>(*options_.day) & 1U) == 0) {
            return;
        }
        std::u16string time(start);
        (time += u'-') += stop;
        ScheduleFields fields;
        fields[ScheduleField::Time] = time;
        fields[ScheduleField::Frequency] = entry.frequency;
        fields[ScheduleField::Target] = entry.target;
        fields[ScheduleField::Programme] = entry.programme;
        AddScheduleRecord(rows_, fields, 0);
    }

    const Options& options_;
    RowStore& rows_;
};

// The nine-line format contains DRM broadcasts only, and no days.
bool readNineLines(Services& services, const Options& options, const std::string& bytes, RowStore& rows) {
    const std::u16string text = services.codePages.decode(bytes);
    if (text.find(u"[DRMSchedule]") == text.npos) {
        return false;
    }
    RowStore all;
    AddScheduleRecords(all, text, 0);
    for (int row = 1; row <= all.rowCount(); ++row) {
        if (containsText(all.text(row, 4), options.target)) {
            rows.appendRow({all.text(row, 1), all.text(row, 2), all.text(row, 3), all.text(row, 4)});
        }
    }
    return true;
}

bool readEntries(Services& services, const Options& options, ScheduleFormat format, const std::string& bytes,
                 RowStore& rows) {
    const UtcTime now = services.clock.now();
    const ScheduleEntries read = format == ScheduleFormat::Eibi
                                     ? readEibi(bytes, now)
                                     : readHfcc(bytes, broadcastersBeside(services, options.input), now);
    Selection selection(options, rows);
    for (const ScheduleEntry& entry : read.entries) {
        selection.add(entry);
    }
    if (read.isSchedule && read.skippedLines > 0) {
        warn(services.console, decimal(read.skippedLines) + u" lines are no broadcasts and are left out");
    }
    return read.isSchedule;
}

void warnOfLongNames(Console& console, const RowStore& rows) {
    int longOnes = 0;
    std::u16string first;
    for (int row = 1; row <= rows.rowCount(); ++row) {
        if (rows.text(row, 1).size() > kMostUnits) {
            first = longOnes++ == 0 ? rows.text(row, 1) : first;
        }
    }
    if (longOnes > 0) {
        warn(console, decimal(longOnes) + u" programmes have more than 10 characters, such as \"" + first + u"\"");
    }
}

void keepFirst(RowStore& rows, int count) {
    for (int row = 1; row <= rows.rowCount(); ++row) {
        rows.setSelected(row, row > count);
    }
    rows.removeSelectedRows();
}

}  // namespace

Exit readSchedule(Services& services, const Options& options, RowStore& rows) {
    std::string bytes;
    std::u16string name = options.input;
    const Exit read = isAddress(options.input) ? download(services, options.input, bytes)
                                               : readInput(services, options.input, name, bytes);
    if (read != Exit::Done) {
        return read;
    }
    const ScheduleFormat format =
        options.scheduleFormat == ScheduleFormat::Auto ? formatOf(bytes) : options.scheduleFormat;
    const bool isSchedule = format == ScheduleFormat::NineLines ? readNineLines(services, options, bytes, rows)
                                                                : readEntries(services, options, format, bytes, rows);
    if (!isSchedule) {
        return fileFault(services.console, name, u"is no broadcast schedule of a known format");
    }
    if (options.first) {
        keepFirst(rows, *options.first);
    }
    warnOfLongNames(services.console, rows);
    return Exit::Done;
}
