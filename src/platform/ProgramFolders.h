// The folders in which the system lets a program keep files.
#pragma once

#include <string>
#include <string_view>

// Every folder is an absolute path with a trailing separator.
class ProgramFolders {
public:
    virtual ~ProgramFolders() = default;
    virtual std::u16string ofExecutable() = 0;
    // True for folders below those of packages and installers.
    virtual bool isForInstalledPrograms(std::u16string_view folder) = 0;
    // Also false if the folder does not exist.
    virtual bool canWrite(std::u16string_view folder) = 0;
    // The folder with this name in the user's application data, whether it exists or not; empty if the user has none.
    virtual std::u16string ofUser(std::u16string_view name) = 0;
    // Creates the folder that ofUser has returned, with the folders above it. True also if it exists.
    virtual bool create(std::u16string_view folderOfUser) = 0;
};
