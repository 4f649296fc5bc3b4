#include "sync/ScheduleSync.h"

#include "storage/text/Numbers.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr std::u16string_view kBuiltInUrl =
    u"http://" HALCYON_SCHEDULE_HOST "/cgi-bin/dbgate.pl?htx=/drmdx/scheduleini2";
constexpr std::u16string_view kScheduleMark = u"[DRMSchedule]";
// A limit of 16-bit signed positions.
constexpr std::size_t kMaxScheduleLength = 32'767;
constexpr std::size_t kMostConfigBytes = 65'536;  // only the first line counts
constexpr std::size_t kMaxUrlLength = 2'083;      // limit of the Internet functions of Windows

std::u16string_view firstLine(std::u16string_view text) { return text.substr(0, text.find_first_of(u"\r\n")); }

bool isUrl(std::u16string_view line) { return line.starts_with(u"http://") && line.size() <= kMaxUrlLength; }

std::u16string_view withoutTrailingBlanks(std::u16string_view line) {
    return line.substr(0, line.find_last_not_of(u" \t") + 1);
}

}  // namespace

std::u16string_view builtInScheduleUrl() { return kBuiltInUrl; }

void ScheduleSync::SyncDrmSchedule() {
    statusBar_.setMessage(u"Downloading,Please wait...");
    const auto url = scheduleUrl();
    if (!url) {
        totals_.ShowTotals();
        return;
    }
    if (!download(*url)) {
        finish(u"Download failed,Please check the network");
        return;
    }
    statusBar_.setMessage(u"Synchronizing,Please wait...");
    const std::u16string schedule = takeDownloadedText();
    if (schedule.find(kScheduleMark) == schedule.npos) {
        finish(u"Illegal file,sync failed");
        return;
    }
    if (schedule.size() > kMaxScheduleLength) {
        messages_.show(u"Overflow");
        return;
    }
    const int added = rebuildList(schedule);
    rebuilt_();
    finish(added == 0 ? u"No new station" : u"The number of new station is: " + decimal(added));
}

std::optional<std::u16string> ScheduleSync::scheduleUrl() {
    const auto bytes = files_.readStart(programFolder_ + u"config.ini", kMostConfigBytes).bytes;
    if (!bytes) {
        return std::u16string(kBuiltInUrl);
    }
    if (bytes->empty()) {
        return std::nullopt;
    }
    const std::u16string config = codePages_.decode(*bytes);
    const std::u16string_view line = firstLine(config);
    return std::u16string(isUrl(line) ? withoutTrailingBlanks(line) : kBuiltInUrl);
}

bool ScheduleSync::download(std::u16string_view url) {
    downloading_ = true;
    const bool downloaded = downloader_.download(url, targetPath());
    downloading_ = false;
    return downloaded && files_.exists(targetPath());
}

std::u16string ScheduleSync::takeDownloadedText() {
    const std::string bytes = files_.read(targetPath()).bytes.value_or("");
    files_.remove(targetPath());
    return codePages_.decode(bytes);
}

int ScheduleSync::rebuildList(std::u16string_view schedule) {
    const GridUpdate update(drmLV_);
    drmLV_.clear();
    // The count after clearing, 0: a record that the schedule contains twice is added twice.
    const int existingRowCount = drmLV_.rowCount();
    return AddScheduleRecords(drmLV_, schedule, existingRowCount);
}

void ScheduleSync::finish(std::u16string_view message) {
    messages_.show(message);
    totals_.ShowTotals();
}
