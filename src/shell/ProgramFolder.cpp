#include "shell/ProgramFolder.h"

#include <string_view>

#include "messages/mMsgBox.h"
#include "storage/files/SafeFile.h"
#include "storage/lists/ListFile.h"

namespace {

constexpr std::u16string_view kConfigName = u"config.ini";

// "List.ini" is copied last: once it exists, the copy is complete and is not repeated.
void copyLists(const std::u16string& from, const std::u16string& to, Files& files) {
    const std::u16string list(ListFile::kListName);
    if (files.exists(to + list) || !files.exists(from + list)) {
        return;
    }
    for (const std::u16string_view name : {kConfigName, ListFile::kUserName, ListFile::kListName}) {
        const std::u16string copy = to + std::u16string(name);
        const FileRead file = files.read(from + std::u16string(name));
        if (file.isMissing || files.exists(copy)) {
            continue;
        }
        if (!file.bytes || !replaceFile(files, copy, *file.bytes)) {
            return;
        }
    }
}

}  // namespace

std::u16string findProgramFolder(ProgramFolders& folders, Files& files) {
    std::u16string own = folders.ofExecutable();
    if (!folders.isForInstalledPrograms(own) && folders.canWrite(own)) {
        return own;
    }
    std::u16string users = folders.ofUser(kProgramTitle);
    if (users.empty()) {
        return own;
    }
    copyLists(own, users, files);
    return users;
}
