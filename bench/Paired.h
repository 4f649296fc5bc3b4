// Two ways of doing something, timed in turns so that a machine whose speed drifts treats both alike.
#pragma once

#include <functional>
#include <string_view>

struct Work {
    std::function<void()> run;
    std::function<void()> prepare = [] {};  // before each run, not timed
};

// Prints one line of tab-separated fields: name, microseconds of ours, microseconds of the other (medians), and the
// median of the ratios ours / other of the pairs.
void measurePair(std::string_view name, const Work& ours, const Work& other, int rounds);
// The same of two functions that measure by themselves, in microseconds.
void reportPairs(std::string_view name, int rounds, const std::function<double()>& ours,
                 const std::function<double()>& other);

// Keeps the compiler from dropping what computed `value`.
void keep(std::size_t value);

// The memory of one run serves the next. Otherwise the allocator gives some of it back to the system, as the sizes
// before happen to have tuned it, and some runs pay for getting it again and others do not.
void keepFreedMemory();
