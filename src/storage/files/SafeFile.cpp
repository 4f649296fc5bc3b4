#include "storage/files/SafeFile.h"

#include <algorithm>
#include <cstddef>

namespace {

// Deletes the temporary file; always returns false.
bool abandon(Files& files, std::u16string_view temporary) {
    files.remove(temporary);
    return false;
}

bool writeTemporary(Files& files, const NewFile& newFile) {
    removeLeftover(files, newFile.path);
    const std::u16string temporary = temporaryPathOf(newFile.path);
    return files.write(temporary, newFile.bytes, Flush::Now) || abandon(files, temporary);
}

bool putInPlace(Files& files, std::u16string_view path) {
    const std::u16string temporary = temporaryPathOf(path);
    return files.rename(temporary, path, Flush::Later) || abandon(files, temporary);
}

}  // namespace

std::u16string temporaryPathOf(std::u16string_view path) {
    const std::size_t name = path.find_last_of(u"/\\") + 1;
    const std::size_t dot = path.rfind(u'.');
    std::u16string temporary(path.substr(0, dot == path.npos || dot < name ? path.size() : dot));
    std::transform(temporary.begin() + static_cast<std::ptrdiff_t>(name), temporary.end(),
                   temporary.begin() + static_cast<std::ptrdiff_t>(name),
                   [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; });
    return temporary + u".K7N";
}

void removeLeftover(Files& files, std::u16string_view path) {
    const std::u16string temporary = temporaryPathOf(path);
    if (files.exists(temporary)) {
        files.remove(temporary);
    }
}

bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes, Flush flush) {
    const std::u16string temporary = temporaryPathOf(path);
    removeLeftover(files, path);  // it could be a hard link to another file
    return (files.write(temporary, bytes, flush) && files.rename(temporary, path, flush)) || abandon(files, temporary);
}

bool replaceFiles(Files& files, const std::vector<NewFile>& newFiles) {
    std::vector<std::u16string_view> written;
    for (const NewFile& newFile : newFiles) {
        if (writeTemporary(files, newFile)) {
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
