#include "storage/files/VerifiedFiles.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "storage/files/SafeFile.h"

namespace {

// One file to be replaced, with its old content.
class Replacement {
public:
    Replacement(Files& files, const NewFile& newFile) : files_(files), path_(newFile.path), bytes_(newFile.bytes) {}

    void readOld() {
        FileRead present = files_.read(path_);
        old_ = std::move(present.bytes);
        wasMissing_ = present.isMissing;
    }
    // Versions before the short names left this one. It takes folder entries and space that the new files may need.
    void removeLongLeftover() {
        const std::u16string leftover = path_ + u".k7new";
        if (files_.exists(leftover)) {
            files_.remove(leftover);
        }
    }
    bool writeTemporary() {
        removeLeftover(files_, path_);
        return files_.write(temporaryPathOf(path_), bytes_, Flush::Now);
    }
    bool lacksRoomForName() { return files_.lacksRoomForName(temporaryPathOf(path_)); }
    bool temporaryHolds() { return files_.readBack(temporaryPathOf(path_)).bytes == bytes_; }
    void abandon() { removeLeftover(files_, path_); }
    bool put() { return files_.rename(temporaryPathOf(path_), path_, Flush::Now) && holds(bytes_); }
    // Room for the new bytes and, if they fail, for the old ones again.
    bool fitsInPlace(std::uint64_t free) const { return old_ && bytes_.size() <= old_->size() + free; }
    bool overwrite() {
        overwritten_ = true;
        return files_.write(path_, bytes_, Flush::Now) && holds(bytes_);
    }

    void putBack() {
        abandon();
        if (!old_) {
            // A file that cannot be read has no content to restore. It stays, or the new file that replaced it does.
            if (wasMissing_ && files_.exists(path_)) {
                files_.remove(path_);
            }
            return;
        }
        if (holds(*old_)) {
            return;
        }
        constexpr int kAttempts = 2;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            if (replaceFile(files_, path_, *old_) && holds(*old_)) {
                return;
            }
        }
        // Overwriting an intact new file could tear it; a torn or damaged one has nothing to lose.
        const auto present = files_.readBack(path_).bytes;
        if (overwritten_ || (present && *present != bytes_)) {
            for (int attempt = 0; attempt < kAttempts && !files_.write(path_, *old_, Flush::Now); ++attempt) {
            }
        }
    }

private:
    bool holds(const std::string& bytes) { return files_.readBack(path_).bytes == bytes; }

    Files& files_;
    const std::u16string& path_;
    const std::string& bytes_;
    std::optional<std::string> old_;
    bool wasMissing_ = false;
    bool overwritten_ = false;
};

using Replacements = std::vector<Replacement>;

template <typename Step>
bool all(Replacements& replacements, Step step) {
    return std::all_of(replacements.begin(), replacements.end(), step);
}

void abandonAll(Replacements& replacements) {
    for (Replacement& one : replacements) {
        one.abandon();
    }
}

template <typename Step>
bool allOrNone(Replacements& replacements, Step step) {
    if (all(replacements, step)) {
        return true;
    }
    for (Replacement& one : replacements) {
        one.putBack();
    }
    return false;
}

std::optional<std::uint64_t> freeSpaceAt(Files& files, std::u16string_view path) {
    return files.freeSpace(path.substr(0, std::min(path.find_last_of(u"/\\"), path.size())));
}

}  // namespace

bool replaceVerified(Files& files, const std::vector<NewFile>& newFiles) {
    Replacements replacements;
    std::uint64_t needed = 0;
    for (const NewFile& newFile : newFiles) {
        replacements.emplace_back(files, newFile);
        needed += newFile.bytes.size();
    }
    if (replacements.empty()) {
        return false;
    }
    for (Replacement& one : replacements) {
        one.readOld();
        one.removeLongLeftover();
    }
    if (all(replacements, [](Replacement& one) { return one.writeTemporary(); })) {
        if (all(replacements, [](Replacement& one) { return one.temporaryHolds(); })) {
            return allOrNone(replacements, [](Replacement& one) { return one.put(); });
        }
        abandonAll(replacements);
        return false;
    }
    const bool lacksNames =
        std::any_of(replacements.begin(), replacements.end(), [](Replacement& one) { return one.lacksRoomForName(); });
    abandonAll(replacements);
    constexpr std::uint64_t kOverhead = 65'536;  // partly used clusters and folder entries, with a margin
    const auto free = freeSpaceAt(files, newFiles.front().path);
    const bool isFull = free && *free < needed + kOverhead;
    if (!isFull && !lacksNames) {
        return false;  // there was room, so the disk is failing: stop before more is lost
    }
    return allOrNone(replacements, [&](Replacement& one) {
        if (one.writeTemporary()) {
            return one.temporaryHolds() && one.put();
        }
        one.abandon();
        return one.fitsInPlace(freeSpaceAt(files, newFiles.front().path).value_or(0)) && one.overwrite();
    });
}
