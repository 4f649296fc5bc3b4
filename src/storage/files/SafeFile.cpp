#include "storage/files/SafeFile.h"

namespace {

// Always false, as the result of what was tried.
bool abandon(Files& files, std::u16string_view beside) {
    files.remove(beside);
    return false;
}

bool writeBeside(Files& files, const NewFile& newFile) {
    removeLeftover(files, newFile.path);
    const std::u16string beside = besideOf(newFile.path);
    return files.write(beside, newFile.bytes) || abandon(files, beside);
}

bool putInPlace(Files& files, std::u16string_view path) {
    const std::u16string beside = besideOf(path);
    return files.renameUnflushed(beside, path) || abandon(files, beside);
}

}  // namespace

std::u16string besideOf(std::u16string_view path) { return std::u16string(path) + u".k7new"; }

bool isMissing(Files& files, std::u16string_view path) {
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (files.exists(path)) {
            return false;
        }
    }
    return true;
}

void removeLeftover(Files& files, std::u16string_view path) {
    const std::u16string beside = besideOf(path);
    if (files.exists(beside)) {
        files.remove(beside);
    }
}

bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes) {
    const std::u16string beside = besideOf(path);
    removeLeftover(files, path);  // it may be another name of some file elsewhere
    return (files.write(beside, bytes) && files.rename(beside, path)) || abandon(files, beside);
}

bool replaceFileUnflushed(Files& files, std::u16string_view path, std::string_view bytes) {
    const std::u16string beside = besideOf(path);
    removeLeftover(files, path);
    return (files.writeUnflushed(beside, bytes) && files.renameUnflushed(beside, path)) || abandon(files, beside);
}

bool replaceFiles(Files& files, const std::vector<NewFile>& newFiles) {
    std::vector<std::u16string_view> written;
    for (const NewFile& newFile : newFiles) {
        if (writeBeside(files, newFile)) {
            written.emplace_back(newFile.path);
        }
    }
    std::size_t replaced = 0;
    std::u16string_view last;
    for (const std::u16string_view path : written) {
        if (putInPlace(files, path)) {
            ++replaced;
            last = path;
        }
    }
    if (replaced > 0) {
        files.flushFolderOf(last);
    }
    return replaced == newFiles.size();
}
