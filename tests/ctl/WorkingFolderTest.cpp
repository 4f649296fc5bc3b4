#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "ctl/CommandLine.h"
#include "ctl/WorkingFolder.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeProgramFolders.h"
#include "fakes/Text.h"

namespace {

class WorkingFolderTest : public testing::Test {
protected:
    std::string folderOf(const std::vector<std::string>& words) {
        folders.created.clear();
        const auto parsed = parseCommandLine(words);
        return narrow(workingFolder(std::get<Options>(parsed), u"/home/", folders, files));
    }

    FakeProgramFolders folders;
    FakeFiles files;
};

}  // namespace

TEST_F(WorkingFolderTest, AFolderOfTheCommandLineIsTakenAsItIs) {
    EXPECT_EQ(folderOf({"--folder", "lists", "import", "x.csv"}), "/home/lists/");
    EXPECT_EQ(folderOf({"--folder", "/lists/", "show"}), "/lists/");
    EXPECT_TRUE(folders.created.empty());
}

TEST_F(WorkingFolderTest, OnlyACommandThatChangesTheListsCreatesTheUsersFolder) {
    folders.installed = true;
    const std::vector<std::vector<std::string>> changing = {
        {"import", "x.csv"},  {"schedule", "merge", "x"}, {"schedule", "replace", "x"},
        {"receiver", "load"}, {"receiver", "save"},       {"backup", "restore", "20260101T000000Z"}};
    for (std::vector<std::string> words : changing) {
        EXPECT_EQ(folderOf(words), "/user/Halcyon_K7/");
        EXPECT_EQ(folders.created.size(), 1U) << words[0];
        words.emplace_back("--dry-run");
        EXPECT_EQ(folderOf(words), "/user/Halcyon_K7/");
        EXPECT_TRUE(folders.created.empty()) << words[0];
    }
    const std::vector<std::vector<std::string>> reading = {{"show"},
                                                           {"find"},
                                                           {"check"},
                                                           {"diff", "a", "b"},
                                                           {"export"},
                                                           {"schedule", "show", "x"},
                                                           {"receiver", "status"},
                                                           {"backup", "list"},
                                                           {"backup", "show", "20260101T000000Z"}};
    for (const std::vector<std::string>& words : reading) {
        EXPECT_EQ(folderOf(words), "/user/Halcyon_K7/");
        EXPECT_TRUE(folders.created.empty()) << words[0];
    }
}
