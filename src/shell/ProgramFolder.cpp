#include "shell/ProgramFolder.h"

#include <string_view>

#include "messages/mMsgBox.h"
#include "storage/files/SafeFile.h"
#include "storage/lists/ListFile.h"

namespace {

constexpr std::u16string_view kConfigName = u"config.ini";

// Empty if the lists are next to the executable.
std::u16string folderOfUser(ProgramFolders& folders, const std::u16string& own) {
    const bool isPortable = !folders.isForInstalledPrograms(own) && folders.canWrite(own);
    return isPortable ? std::u16string() : folders.ofUser(kProgramTitle);
}

bool hasLists(const std::u16string& folder, Files& files) {
    return files.exists(folder + std::u16string(ListFile::kListName));
}

// "List.ini" is copied last: once it exists, the copy is complete and is not repeated.
void copyLists(const std::u16string& from, const std::u16string& to, Files& files) {
    if (hasLists(to, files) || !hasLists(from, files)) {
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
    std::u16string users = folderOfUser(folders, own);
    if (users.empty() || !folders.create(users)) {
        return own;
    }
    copyLists(own, users, files);
    return users;
}

std::u16string findProgramFolderToRead(ProgramFolders& folders, Files& files) {
    std::u16string own = folders.ofExecutable();
    std::u16string users = folderOfUser(folders, own);
    return users.empty() || (!hasLists(users, files) && hasLists(own, files)) ? own : users;
}
