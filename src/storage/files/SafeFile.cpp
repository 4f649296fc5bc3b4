#include "storage/files/SafeFile.h"

namespace {

// Deletes the temporary file; always returns false.
bool abandon(Files& files, std::u16string_view beside) {
    files.remove(beside);
    return false;
}

bool writeBeside(Files& files, const NewFile& newFile) {
    removeLeftover(files, newFile.path);
    const std::u16string beside = besideOf(newFile.path);
    return files.write(beside, newFile.bytes, Flush::Now) || abandon(files, beside);
}

bool putInPlace(Files& files, std::u16string_view path) {
    const std::u16string beside = besideOf(path);
    return files.rename(beside, path, Flush::Later) || abandon(files, beside);
}

}  // namespace

std::u16string besideOf(std::u16string_view path) { return std::u16string(path) + u".k7new"; }

void removeLeftover(Files& files, std::u16string_view path) {
    const std::u16string beside = besideOf(path);
    if (files.exists(beside)) {
        files.remove(beside);
    }
}

bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes, Flush flush) {
    const std::u16string beside = besideOf(path);
    removeLeftover(files, path);  // it could be a hard link to another file
    return (files.write(beside, bytes, flush) && files.rename(beside, path, flush)) || abandon(files, beside);
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
    const bool durable = replaced == 0 || files.flushFolderOf(last);
    return durable && replaced == newFiles.size();
}
