// The executable's folder and the user's application data.
#pragma once

#include "platform/ProgramFolders.h"

class Win32ProgramFolders : public ProgramFolders {
public:
    std::u16string ofExecutable() override;
    bool isForInstalledPrograms(std::u16string_view folder) override;
    bool canWrite(std::u16string_view folder) override;
    std::u16string ofUser(std::u16string_view name) override;
    bool create(std::u16string_view folderOfUser) override;
};
