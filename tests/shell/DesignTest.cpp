#include <gtest/gtest.h>

#include "fakes/Text.h"
#include "shell/Design.h"

namespace {

class FakeFolders : public ProgramFolders {
public:
    std::u16string ofExecutable() override { return u"/app/"; }
    bool canWrite(std::u16string_view folder) override { return folder == u"/app/" && writable; }
    std::u16string ofUser(std::u16string_view name) override {
        ++madeForUser;
        return hasUser ? u"/user/" + std::u16string(name) + u"/" : std::u16string();
    }

    bool writable = true;
    bool hasUser = true;
    int madeForUser = 0;
};

}  // namespace

TEST(ProgramFolder, IsThatOfTheExecutable) {
    FakeFolders folders;
    EXPECT_EQ(narrow(programFolder(folders)), "/app/");
    EXPECT_EQ(folders.madeForUser, 0) << "a folder was made that nobody needs";
}

TEST(ProgramFolder, IsTheUsersWhereThatCannotBeWritten) {
    FakeFolders folders;
    folders.writable = false;
    EXPECT_EQ(narrow(programFolder(folders)), "/user/Halcyon_K7/");
}

TEST(ProgramFolder, StaysThatOfTheExecutableWhenTheUserHasNone) {
    FakeFolders folders;
    folders.writable = false;
    folders.hasUser = false;
    EXPECT_EQ(narrow(programFolder(folders)), "/app/");
}
