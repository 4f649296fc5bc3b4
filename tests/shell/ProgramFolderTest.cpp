#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/FakeFiles.h"
#include "fakes/FakeProgramFolders.h"
#include "fakes/Text.h"
#include "shell/ProgramFolder.h"

namespace {

class ProgramFolderTest : public testing::Test {
protected:
    std::string find() { return narrow(findProgramFolder(folders, files)); }
    std::string findToRead() { return narrow(findProgramFolderToRead(folders, files)); }
    std::string fileOfUser(const std::u16string& name) {
        const auto found = files.files.find(u"/user/Halcyon_K7/" + name);
        return found != files.files.end() ? found->second : "none";
    }

    FakeProgramFolders folders;
    FakeFiles files;
};

TEST_F(ProgramFolderTest, APortableCopyKeepsItsListsNextToTheExecutable) {
    files.files[u"/app/List.ini"] = "lists";
    EXPECT_EQ(find(), "/app/");
    EXPECT_TRUE(folders.created.empty());
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

TEST_F(ProgramFolderTest, WithoutRoomForAUsersFolderTheListsStayNextToTheExecutable) {
    folders.installed = true;
    folders.canCreate = false;
    EXPECT_EQ(find(), "/app/");
    EXPECT_EQ(folders.created, std::vector<std::u16string>{u"/user/Halcyon_K7/"});
}

TEST_F(ProgramFolderTest, ReadingCreatesAndCopiesNothing) {
    EXPECT_EQ(findToRead(), "/app/");
    folders.installed = true;
    EXPECT_EQ(findToRead(), "/user/Halcyon_K7/");
    files.files = {{u"/app/List.ini", "lists"}, {u"/app/User.ini", "favourites"}};
    EXPECT_EQ(findToRead(), "/app/") << "these are what the first start copies";
    EXPECT_EQ(files.files.size(), 2U);
    files.files[u"/user/Halcyon_K7/List.ini"] = "own";
    EXPECT_EQ(findToRead(), "/user/Halcyon_K7/");
    folders.hasUser = false;
    EXPECT_EQ(findToRead(), "/app/");
    EXPECT_TRUE(folders.created.empty());
}

TEST_F(ProgramFolderTest, ListsNextToTheExecutableAreCopiedToTheUsersFolder) {
    folders.writable = false;
    files.files = {{u"/app/List.ini", "lists"}, {u"/app/User.ini", "favourites"}, {u"/app/config.ini", "address"}};
    EXPECT_EQ(find(), "/user/Halcyon_K7/");
    EXPECT_EQ(fileOfUser(u"List.ini"), "lists");
    EXPECT_EQ(fileOfUser(u"User.ini"), "favourites");
    EXPECT_EQ(fileOfUser(u"config.ini"), "address");
    EXPECT_EQ(files.files.size(), 6U) << "the files next to the executable stay, and nothing else is written";
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
    for (const char16_t* failing : {u"/app/User.ini", u"/user/Halcyon_K7/USER.K7N", u"/user/Halcyon_K7/LIST.K7N"}) {
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
