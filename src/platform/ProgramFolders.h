// Where the system lets a program keep its files.
#pragma once

#include <string>
#include <string_view>

// Folders as absolute paths with their trailing separator.
class ProgramFolders {
public:
    virtual ~ProgramFolders() = default;
    virtual std::u16string ofExecutable() = 0;
    // False also when there is no such folder.
    virtual bool canWrite(std::u16string_view folder) = 0;
    // The sub-folder of that name, made here, in the user's own application data; empty when there is none.
    virtual std::u16string ofUser(std::u16string_view name) = 0;
};
