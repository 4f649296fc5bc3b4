#include "storage/SafeFile.h"

#include <optional>
#include <string>

namespace {

std::u16string besideOf(std::u16string_view path) { return std::u16string(path) + u".k7new"; }

bool holds(Files& files, std::u16string_view path, std::string_view bytes) {
    const auto present = files.readBack(path);
    return present && *present == bytes;
}

// Undoes a failed overwrite. Writing in place is the last resort here: there is no new file left to protect.
void putBack(Files& files, std::u16string_view path, const std::optional<std::string>& old) {
    if (!old) {
        files.remove(path);
    } else if (!replaceFile(files, path, *old)) {
        files.write(path, *old);
    }
}

}  // namespace

void removeLeftover(Files& files, std::u16string_view path) {
    const std::u16string beside = besideOf(path);
    if (files.exists(beside)) {
        files.remove(beside);
    }
}

bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes) {
    const std::u16string beside = besideOf(path);
    removeLeftover(files, path);  // it may be another name of some file elsewhere
    if (files.write(beside, bytes) && files.rename(beside, path)) {
        return true;
    }
    files.remove(beside);
    return false;
}

bool replaceVerified(Files& files, std::u16string_view path, std::string_view bytes) {
    std::optional<std::string> old;
    if (files.exists(path)) {
        old = files.read(path);
        if (!old) {
            return false;  // could not be put back
        }
    }
    const std::u16string beside = besideOf(path);
    if (files.write(beside, bytes)) {
        const bool replaced = holds(files, beside, bytes) && files.rename(beside, path);
        if (!replaced) {
            files.remove(beside);
            return false;
        }
    } else {
        files.remove(beside);
        if (!files.write(path, bytes)) {
            putBack(files, path, old);
            return false;
        }
    }
    if (holds(files, path, bytes)) {
        return true;
    }
    putBack(files, path, old);
    return false;
}
