#include "fat/States.h"

#include <cstddef>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kAllSubsets =
    9;  // subsets of up to this many writes; of more writes those that lack or have up to two, and a sample
constexpr int kSample = 100;

using Writes = std::vector<const BlockEvent*>;

void apply(std::string& medium, const BlockEvent& write, std::size_t size) {
    medium.replace(static_cast<std::size_t>(write.offset), size, write.bytes, 0, size);
}

class Epoch {
public:
    Epoch(const std::string& base, const Writes& writes, const std::function<void(const std::string&)>& check)
        : base_(base), writes_(writes), check_(check) {}

    void prefixes() const {
        std::string medium = base_;
        check_(medium);
        for (const BlockEvent* const write : writes_) {
            for (std::size_t torn = kSector; torn < write->bytes.size(); torn += kSector) {
                std::string part = medium;
                apply(part, *write, torn);
                check_(part);
            }
            apply(medium, *write, write->bytes.size());
            check_(medium);
        }
    }

    void subsets() const {
        const std::size_t count = writes_.size();
        if (count <= kAllSubsets) {
            for (std::size_t bits = 0; bits < (std::size_t{1} << count); ++bits) {
                with([&](std::size_t i) { return ((bits >> i) & 1U) != 0; });
            }
            return;
        }
        for (std::size_t first = 0; first < count; ++first) {
            for (std::size_t second = first; second < count; ++second) {
                const auto isOne = [&](std::size_t i) { return i == first || i == second; };
                with(isOne);
                with([&](std::size_t i) { return !isOne(i); });
            }
        }
        std::mt19937 random(1);
        for (int i = 0; i < kSample; ++i) {
            with([&](std::size_t) { return random() % 2 == 0; });
        }
    }

private:
    template <typename Chosen>
    void with(const Chosen& chosen) const {
        std::string medium = base_;
        for (std::size_t i = 0; i < writes_.size(); ++i) {
            if (chosen(i)) {
                apply(medium, *writes_[i], writes_[i]->bytes.size());
            }
        }
        check_(medium);
    }

    const std::string& base_;
    const Writes& writes_;
    const std::function<void(const std::string&)>& check_;
};

}  // namespace

void eachState(const BlockLog& log, const std::function<void(const std::string& medium, int returned)>& check) {
    std::set<std::pair<std::size_t, int>> seen;
    std::string base = log.before;
    Writes writes;
    int marks = 0;
    const std::function<void(const std::string&)> once = [&](const std::string& medium) {
        if (seen.emplace(std::hash<std::string>()(medium), marks).second) {
            check(medium, marks);
        }
    };
    const auto endEpoch = [&] {
        const Epoch epoch(base, writes, once);
        epoch.prefixes();
        epoch.subsets();
    };
    for (const BlockEvent& event : log.events) {
        if (event.kind == BlockEvent::Kind::Write) {
            writes.push_back(&event);
            continue;
        }
        endEpoch();
        if (event.kind == BlockEvent::Kind::Mark) {
            ++marks;  // what has not been flushed by now can still be lost
            continue;
        }
        for (const BlockEvent* const write : writes) {
            apply(base, *write, write->bytes.size());
        }
        writes.clear();
    }
    endEpoch();
}
