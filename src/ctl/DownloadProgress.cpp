#include "ctl/DownloadProgress.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* kDownloading = "Downloading...";

}  // namespace

void DownloadProgress::begin() {
    if (console_.showsProgress()) {
        show(kDownloading);
    }
}

void DownloadProgress::update(const HttpProgress& progress) {
    if (shown_.empty() || progress.received == 0) {
        return;
    }
    std::string line = kDownloading;
    line += ' ' + std::to_string(progress.received);
    line += progress.announced ? " of " + std::to_string(*progress.announced) : "";
    show(line + " bytes");
}

void DownloadProgress::end() {
    if (!shown_.empty()) {
        console_.writeError("\n");
        shown_.clear();
    }
}

void DownloadProgress::show(std::string line) {
    if (line == shown_) {
        return;
    }
    // Blanks cover the rest of a longer line.
    const std::string rest(shown_.size() - std::min(shown_.size(), line.size()), ' ');
    console_.writeError((shown_.empty() ? "" : "\r") + line + rest);
    shown_ = std::move(line);
}
