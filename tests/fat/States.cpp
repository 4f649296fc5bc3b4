#include "fat/States.h"

#include <cstddef>
#include <random>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kAllSubsets =
    9;  // subsets of up to this many writes; of more writes those that lack or have up to two, and a sample
constexpr int kSample = 100;

using Writes = std::vector<const BlockEvent*>;

// A medium whose checksum follows each write, so that states are told apart without reading all their bytes.
class HashedMedium {
public:
    explicit HashedMedium(std::string bytes) : bytes_(std::move(bytes)) { toggle(0, bytes_.size()); }

    const std::string& bytes() const { return bytes_; }
    std::size_t hash() const { return hash_; }
    // Returns the bytes that are replaced.
    std::string put(std::size_t offset, std::string_view bytes) {
        std::string old = bytes_.substr(offset, bytes.size());
        toggle(offset, bytes.size());
        bytes_.replace(offset, bytes.size(), bytes);
        toggle(offset, bytes.size());
        return old;
    }

private:
    // Adds the sectors to the checksum, or removes them from it.
    void toggle(std::size_t offset, std::size_t size) {
        for (std::size_t sector = offset / kSector; sector * kSector < offset + size; ++sector) {
            const auto bytes = std::string_view(bytes_).substr(sector * kSector, kSector);
            hash_ ^= std::hash<std::string_view>()(bytes) * (2 * sector + 1);
        }
    }

    std::string bytes_;
    std::size_t hash_ = 0;
};

// Writes to a medium until it is destroyed.
class Attempt {
public:
    explicit Attempt(HashedMedium& medium) : medium_(medium) {}
    ~Attempt() {
        for (; !replaced_.empty(); replaced_.pop_back()) {
            medium_.put(replaced_.back().first, replaced_.back().second);
        }
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    void put(const BlockEvent& write, std::size_t size) {
        const auto offset = static_cast<std::size_t>(write.offset);
        replaced_.emplace_back(offset, medium_.put(offset, std::string_view(write.bytes).substr(0, size)));
    }

private:
    HashedMedium& medium_;
    std::vector<std::pair<std::size_t, std::string>> replaced_;
};

// The writes between two flushes.
class Epoch {
public:
    Epoch(HashedMedium& medium, const Writes& writes, const std::function<void()>& check)
        : medium_(medium), writes_(writes), check_(check) {}

    void prefixes() const {
        Attempt whole(medium_);
        check_();
        for (const BlockEvent* const write : writes_) {
            for (std::size_t torn = kSector; torn < write->bytes.size(); torn += kSector) {
                Attempt part(medium_);
                part.put(*write, torn);
                check_();
            }
            whole.put(*write, write->bytes.size());
            check_();
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
        Attempt attempt(medium_);
        for (std::size_t i = 0; i < writes_.size(); ++i) {
            if (chosen(i)) {
                attempt.put(*writes_[i], writes_[i]->bytes.size());
            }
        }
        check_();
    }

    HashedMedium& medium_;
    const Writes& writes_;
    const std::function<void()>& check_;
};

}  // namespace

void eachState(const BlockLog& log, const std::function<void(const std::string& medium, int returned)>& check) {
    std::set<std::pair<std::size_t, int>> seen;
    HashedMedium medium(log.before);
    Writes writes;
    int marks = 0;
    const std::function<void()> once = [&] {
        if (seen.emplace(medium.hash(), marks).second) {
            check(medium.bytes(), marks);
        }
    };
    const auto endEpoch = [&] {
        const Epoch epoch(medium, writes, once);
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
            medium.put(static_cast<std::size_t>(write->offset), write->bytes);
        }
        writes.clear();
    }
    endEpoch();
}
