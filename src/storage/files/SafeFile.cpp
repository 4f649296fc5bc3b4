#include "storage/files/SafeFile.h"

#include <algorithm>
#include <cstddef>

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

std::u16string besideOf(std::u16string_view path) {
    const std::size_t name = path.find_last_of(u"/\\") + 1;
    const std::size_t dot = path.rfind(u'.');
    std::u16string beside(path.substr(0, dot == path.npos || dot < name ? path.size() : dot));
    std::transform(beside.begin() + static_cast<std::ptrdiff_t>(name), beside.end(),
                   beside.begin() + static_cast<std::ptrdiff_t>(name),
                   [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; });
    return beside + u".K7N";
}

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
