#include "storage/SafeFile.h"

std::u16string besideOf(std::u16string_view path) { return std::u16string(path) + u".k7new"; }

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
