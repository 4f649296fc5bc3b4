// Measures the cost per row of load, save, merging a schedule and deleting, from the receiver's number of rows to the
// maximum count in a list file. The sizes alternate, as the speed of a processor changes with what else runs on it.
// Prints: name, rows, nanoseconds of processor time per row, its ratio to that of the smallest size (medians).
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
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
constexpr int kRowsOfARound = 32'767;  // small lists are measured several times in a round
constexpr int kRounds = 15;

struct Lists {
    explicit Lists(int records) : sample(u"/"), rows(records) { sample.fill(records); }
    void load() {
        ListLoader loader(sample.lists(), sample.copies(), sample.settings(), files, codePages);
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    void save() { ListSaver(sample.lists(), sample.copies(), sample.settings(), savedFiles, codePages).SaveLists(); }
    void select() {
        sample.fill(rows);
        for (int row = 1; row <= rows; row += 2) {
            sample.grid(ListKind::Drm).setSelected(row, true);
        }
    }

    MemoryFiles files;
    MemoryFiles savedFiles;  // of their own: a save writes UTF-8, which a load expects to be converted first
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

double nanosecondsOf(const Work& work) {
    work.prepare();
    const double start = processorNanoseconds();
    work.run();
    return processorNanoseconds() - start;
}

// One kind of work on lists of one size.
struct Point {
    const char* name;
    int rows;
    Work work;
    double rowsTouched;
    std::vector<double> costs;  // per row, one for each round

    void measure() {
        std::vector<double> times;
        for (int rowsDone = 0; rowsDone < kRowsOfARound; rowsDone += rows) {
            times.push_back(nanosecondsOf(work));
        }
        costs.push_back(medianOf(std::move(times)) / rowsTouched);
    }
};

// The first point of each name is its smallest size.
void report(const std::vector<Point>& points) {
    for (const Point& point : points) {
        const auto smallest = std::find_if(points.begin(), points.end(), [&](const Point& other) {
            return std::string_view(other.name) == point.name;
        });
        std::vector<double> growth;
        for (std::size_t round = 0; round < point.costs.size(); ++round) {
            growth.push_back(point.costs[round] / smallest->costs[round]);
        }
        std::printf("%s\t%d\t%.2f\t%.3f\n", point.name, point.rows, medianOf(point.costs), medianOf(growth));
    }
}

void measure(std::vector<Point>& points) {
    for (int round = 0; round <= kRounds; ++round) {
        for (Point& point : points) {
            point.measure();
        }
    }
    for (Point& point : points) {
        point.costs.erase(point.costs.begin());  // the first round is the warm-up
    }
    report(points);
}

// Of the size of a schedule with that many records; a real one is limited to 32,767 characters.
std::u16string scheduleOf(int records) {
    constexpr std::size_t kRecordLength = 160;
    return sampleSchedule(static_cast<std::size_t>(records) * kRecordLength);
}

void addLists(std::vector<Point>& points, Lists& lists) {
    const int rows = lists.rows;
    points.push_back({"load", rows, {[&] { lists.load(); }, [&] { lists.sample.clear(); }}, 4.0 * rows, {}});
    points.push_back({"save", rows, {[&] { lists.save(); }}, 4.0 * rows, {}});
    const auto remove = [&] { lists.sample.grid(ListKind::Drm).removeSelectedRows(); };
    points.push_back({"delete", rows, {remove, [&] { lists.select(); }}, 1.0 * rows, {}});
}

void measureLists() {
    std::deque<Lists> lists;  // a deque, as the points refer to them
    std::vector<Point> points;
    for (const int rows : kSizes) {
        Lists& added = lists.emplace_back(rows);
        added.sample.writeUtf16(added.files, added.codePages);
        added.sample.writeUtf8(added.savedFiles, added.codePages);
        addLists(points, added);
    }
    measure(points);
}

// No record after the 257th is added, as in the command itself.
void measureSchedules() {
    RowStore grid;
    std::deque<std::u16string> schedules;
    std::vector<Point> points;
    for (const int rows : {8, 32, 128, 256}) {
        const std::u16string& schedule = schedules.emplace_back(scheduleOf(rows));
        const int added = AddScheduleRecords(grid, schedule, 0);
        grid.clear();
        const Work work{[&] { AddScheduleRecords(grid, schedule, 0); }, [&] { grid.clear(); }};
        points.push_back({"schedule", added, work, 1.0 * added, {}});
    }
    measure(points);
}

}  // namespace

int main() {
    keepFreedMemory();
    measureLists();
    measureSchedules();
    return 0;
}
