#include <gtest/gtest.h>

#include <string>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "shell/ProgramFolder.h"

namespace {

class FakeFolders : public ProgramFolders {
public:
    std::u16string ofExecutable() override { return u"/app/"; }
    bool isForInstalledPrograms(std::u16string_view folder) override { return folder == u"/app/" && installed; }
    bool canWrite(std::u16string_view folder) override { return folder == u"/app/" && writable; }
    std::u16string ofUser(std::u16string_view name) override {
        ++createdForUser;
        return hasUser ? u"/user/" + std::u16string(name) + u"/" : std::u16string();
    }

    bool installed = false;
    bool writable = true;
    bool hasUser = true;
    int createdForUser = 0;
};

class ProgramFolderTest : public testing::Test {
protected:
    std::string find() { return narrow(findProgramFolder(folders, files)); }
    std::string fileOfUser(const std::u16string& name) {
        const auto found = files.files.find(u"/user/Halcyon_K7/" + name);
        return found != files.files.end() ? found->second : "none";
    }

    FakeFolders folders;
    FakeFiles files;
};

TEST_F(ProgramFolderTest, APortableCopyKeepsItsListsNextToTheExecutable) {
    files.files[u"/app/List.ini"] = "lists";
    EXPECT_EQ(find(), "/app/");
    EXPECT_EQ(folders.createdForUser, 0);
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(ProgramFolderTest, AnInstalledProgramUsesTheUsersFolderWithAnyRights) {
    folders.installed = true;
    EXPECT_EQ(find(), "/user/Halcyon_K7/");
    EXPECT_TRUE(files.files.empty());
}

TEST_F(ProgramFolderTest, AFolderThatIsNotWritableLeadsToTheUsersFolder) {
    folders.writable = false;
    EXPECT_EQ(find(), "/user/Halcyon_K7/");
    EXPECT_TRUE(files.files.empty());
}

TEST_F(ProgramFolderTest, WithoutAUsersFolderTheListsStayNextToTheExecutable) {
    folders.hasUser = false;
    for (const bool installed : {false, true}) {
        folders.installed = installed;
        folders.writable = false;
        EXPECT_EQ(find(), "/app/");
    }
}

TEST_F(ProgramFolderTest, ListsNextToTheExecutableAreCopiedToTheUsersFolder) {
    folders.writable = false;
    files.files = {{u"/app/List.ini", "lists"}, {u"/app/User.ini", "favourites"}, {u"/app/config.ini", "address"}};
    EXPECT_EQ(find(), "/user/Halcyon_K7/");
    EXPECT_EQ(fileOfUser(u"List.ini"), "lists");
    EXPECT_EQ(fileOfUser(u"User.ini"), "favourites");
    EXPECT_EQ(fileOfUser(u"config.ini"), "address");
    EXPECT_EQ(files.files.size(), 6U) << "the files beside the executable stay, and nothing else is written";
}

TEST_F(ProgramFolderTest, ListsAreCopiedOnce) {
    folders.writable = false;
    files.files = {{u"/app/List.ini", "old"}, {u"/app/User.ini", "old"}, {u"/user/Halcyon_K7/List.ini", "own"}};
    find();
    EXPECT_EQ(fileOfUser(u"List.ini"), "own");
    EXPECT_EQ(fileOfUser(u"User.ini"), "none");
}

TEST_F(ProgramFolderTest, AFileOfTheUserIsNotReplacedByACopy) {
    folders.writable = false;
    files.files = {{u"/app/List.ini", "lists"}, {u"/app/User.ini", "other"}, {u"/user/Halcyon_K7/User.ini", "own"}};
    find();
    EXPECT_EQ(fileOfUser(u"List.ini"), "lists");
    EXPECT_EQ(fileOfUser(u"User.ini"), "own");
}

TEST_F(ProgramFolderTest, WithoutAListFileNothingIsCopied) {
    folders.writable = false;
    files.files = {{u"/app/User.ini", "favourites"}, {u"/app/config.ini", "address"}};
    find();
    EXPECT_EQ(fileOfUser(u"User.ini"), "none");
    EXPECT_EQ(fileOfUser(u"config.ini"), "none");
}

TEST_F(ProgramFolderTest, AFailedCopyIsCompletedByTheNextStart) {
    folders.writable = false;
    for (const char16_t* failing :
         {u"/app/User.ini", u"/user/Halcyon_K7/User.ini.k7new", u"/user/Halcyon_K7/List.ini.k7new"}) {
        files.files = {{u"/app/List.ini", "lists"}, {u"/app/User.ini", "favourites"}};
        files.failing = {failing};
        find();
        EXPECT_EQ(fileOfUser(u"List.ini"), "none");
        files.failing.clear();
        find();
        EXPECT_EQ(fileOfUser(u"List.ini"), "lists");
        EXPECT_EQ(fileOfUser(u"User.ini"), "favourites");
    }
}

}  // namespace
