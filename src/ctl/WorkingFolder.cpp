#include "ctl/WorkingFolder.h"

#include "ctl/Sources.h"
#include "shell/ProgramFolder.h"

std::u16string workingFolder(const Options& options, std::u16string_view currentFolder, ProgramFolders& folders,
                             Files& files) {
    if (options.folder) {
        return folderPath(absolutePath(currentFolder, *options.folder), currentFolder.back());
    }
    return options.isReadOnly() ? findProgramFolderToRead(folders, files) : findProgramFolder(folders, files);
}
