#include "Paired.h"

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdio>
#include <string>
#include <vector>

namespace {

double microsecondsOf(const Work& work) {
    work.prepare();
    const auto start = std::chrono::steady_clock::now();
    work.run();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void measurePair(std::string_view name, const Work& ours, const Work& other, int rounds) {
    const auto timeOurs = [&] { return microsecondsOf(ours); };
    const auto timeOther = [&] { return microsecondsOf(other); };
    reportPairs(name, rounds, timeOurs, timeOther);
}

void reportPairs(std::string_view name, int rounds, const std::function<double()>& ours,
                 const std::function<double()>& other) {
    ours();  // warm-up
    other();
    std::vector<double> first;
    std::vector<double> second;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        first.push_back(ours());
        second.push_back(other());
        ratios.push_back(first.back() / second.back());
    }
    std::printf("%s\t%.3f\t%.3f\t%.4f\n", std::string(name).c_str(), medianOf(first), medianOf(second),
                medianOf(ratios));
    std::fflush(stdout);
}

void keep(std::size_t value) {
    [[maybe_unused]] static volatile std::size_t sink = 0;
    sink = value;
}

void keepFreedMemory() {
    ::mallopt(M_MMAP_THRESHOLD, INT_MAX);
    ::mallopt(M_TRIM_THRESHOLD, INT_MAX);
}
