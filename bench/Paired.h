// Measures two alternatives in turns, so that changes of the machine's speed affect both.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

struct Work {
    std::function<void()> run;
    std::function<void()> prepare = [] {};  // before each run, not timed
};

// Prints one line of tab-separated fields: name, microseconds of ours, microseconds of the other (medians), and the
// median of the ratios ours / other.
void measurePair(std::string_view name, const Work& ours, const Work& other, int rounds);
// The same for two functions that measure themselves, in microseconds.
void reportPairs(std::string_view name, int rounds, const std::function<double()>& ours,
                 const std::function<double()>& other);

// The upper one of two in the middle. `values` is not empty.
double medianOf(std::vector<double> values);

// Keeps the compiler from removing the computation of `value`.
void keep(std::size_t value);

// Keeps freed memory for the next run. Otherwise the allocator returns some of it to the system, depending on earlier
// sizes, and only some runs pay for requesting it again.
void keepFreedMemory();
