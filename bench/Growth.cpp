// Measures the cost per row of load, save, merging a schedule and deleting, from the receiver's number of rows to the
// maximum count in a list file. Prints: name, rows, nanoseconds of processor time per row (the median).
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "MemoryFiles.h"
#include "Paired.h"
#include "SampleLists.h"
#include "platform/posix/PosixCodePages.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr std::array kSizes = {256, 512, 1024, 2048, 4096, 8192, 16384, 32767};
constexpr int kRowsMeasured = 700'000;  // per size; small lists are measured more often

struct Lists {
    explicit Lists(int records) : sample(u"/"), rows(records) { sample.fill(records); }
    void load() {
        ListLoader loader(sample.lists(), sample.copies(), sample.settings(), files, codePages);
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    void save() { ListSaver(sample.lists(), sample.copies(), sample.settings(), files, codePages).SaveLists(); }
    void select() {
        sample.fill(rows);
        for (int row = 1; row <= rows; row += 2) {
            sample.grid(ListKind::Drm).setSelected(row, true);
        }
    }

    MemoryFiles files;
    PosixCodePages codePages;
    SampleLists sample;
    int rows;
};

// Time of this thread only, as other processes may run during long measurements.
double processorNanoseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double medianOf(const Work& work, int runs) {
    std::vector<double> times;
    for (int run = 0; run <= runs; ++run) {
        work.prepare();
        const double start = processorNanoseconds();
        work.run();
        times.push_back(processorNanoseconds() - start);
    }
    times.erase(times.begin());  // the first run is the warm-up
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void report(const char* name, int rows, const Work& work, double rowsTouched) {
    std::printf("%s\t%d\t%.2f\n", name, rows, medianOf(work, std::max(9, kRowsMeasured / rows)) / rowsTouched);
    std::fflush(stdout);
}

// Of the size of a schedule with that many records; a real one is limited to 32,767 characters.
std::u16string scheduleOf(int records) {
    constexpr std::size_t kRecordLength = 160;
    return sampleSchedule(static_cast<std::size_t>(records) * kRecordLength);
}

void measure(int rows) {
    Lists lists(rows);
    lists.sample.writeUtf16(lists.files, lists.codePages);
    report("load", rows, {[&] { lists.load(); }, [&] { lists.sample.clear(); }}, 4.0 * rows);
    report("save", rows, {[&] { lists.save(); }}, 4.0 * rows);
    report("delete", rows, {[&] { lists.sample.grid(ListKind::Drm).removeSelectedRows(); }, [&] { lists.select(); }},
           rows);
}

// No record after the 257th is added, as in the command itself.
void measureSchedule(int rows) {
    const std::u16string schedule = scheduleOf(rows);
    RowStore grid;
    const int added = AddScheduleRecords(grid, schedule, 0);
    report("schedule", added, {[&] { AddScheduleRecords(grid, schedule, 0); }, [&] { grid.clear(); }}, added);
}

}  // namespace

int main() {
    keepFreedMemory();
    for (const int rows : kSizes) {
        measure(rows);
    }
    for (const int rows : {8, 32, 128, 256}) {
        measureSchedule(rows);
    }
    return 0;
}
