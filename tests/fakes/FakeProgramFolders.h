// A program in "/app/" whose user keeps application data in "/user/".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ProgramFolders.h"

class FakeProgramFolders : public ProgramFolders {
public:
    std::u16string ofExecutable() override { return u"/app/"; }
    bool isForInstalledPrograms(std::u16string_view folder) override { return folder == u"/app/" && installed; }
    bool canWrite(std::u16string_view folder) override { return folder == u"/app/" && writable; }
    std::u16string ofUser(std::u16string_view name) override {
        return hasUser ? u"/user/" + std::u16string(name) + u"/" : std::u16string();
    }
    bool create(std::u16string_view folderOfUser) override {
        created.emplace_back(folderOfUser);
        return canCreate;
    }

    bool installed = false;
    bool writable = true;
    bool hasUser = true;
    bool canCreate = true;
    std::vector<std::u16string> created;  // or tried to be
};
