#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/posix/NativePath.h"
#include "platform/posix/PosixProgramFolders.h"
#include "platform/posix/TemporaryFolder.h"

namespace {

// Sets an environment variable, or removes it for a null pointer, until the end of the object's lifetime.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name), old_(valueOf(name)) {
        value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    static std::optional<std::string> valueOf(const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }

    const char* name_;
    std::optional<std::string> old_;
};

class PosixProgramFoldersTest : public testing::Test {
protected:
    TemporaryFolder folder;
    PosixProgramFolders folders;
};

TEST_F(PosixProgramFoldersTest, TheExecutablesFolderIsThatOfTheTests) {
    const std::u16string own = portablePath(std::filesystem::canonical("/proc/self/exe").parent_path().native());
    EXPECT_EQ(folders.ofExecutable(), own + u"/");
}

TEST_F(PosixProgramFoldersTest, PackagesInstallBelowUsrAndOpt) {
    for (const char16_t* installed : {u"/usr/bin/", u"/usr/local/bin/", u"/opt/halcyon/"}) {
        EXPECT_TRUE(folders.isForInstalledPrograms(installed));
    }
    for (const char16_t* portable : {u"/home/usr/", u"/usra/", u"/optional/", u"/home/me/opt/", u"/"}) {
        EXPECT_FALSE(folders.isForInstalledPrograms(portable));
    }
}

TEST_F(PosixProgramFoldersTest, OnlyAnExistingFolderIsWritable) {
    EXPECT_TRUE(folders.canWrite(folder.at(u"/")));
    EXPECT_FALSE(folders.canWrite(folder.at(u"none/")));
}

TEST_F(PosixProgramFoldersTest, TheUsersFolderIsCreatedInTheDataFolder) {
    const Variable data("XDG_DATA_HOME", folder.native("data").c_str());
    EXPECT_EQ(folders.ofUser(u"Sub"), folder.at(u"data/Sub/"));
    EXPECT_FALSE(std::filesystem::exists(folder.native("data"))) << "finding it creates nothing";
    EXPECT_TRUE(folders.create(folder.at(u"data/Sub/")));
    EXPECT_TRUE(folders.create(folder.at(u"data/Sub/"))) << "it exists";
    EXPECT_TRUE(std::filesystem::is_directory(folder.native("data/Sub")));
}

TEST_F(PosixProgramFoldersTest, WithoutADataFolderTheHomeFolderIsUsed) {
    const Variable home("HOME", folder.native("").c_str());
    for (const char* unset : {static_cast<const char*>(nullptr), "", "relative"}) {
        const Variable data("XDG_DATA_HOME", unset);
        EXPECT_EQ(folders.ofUser(u"Sub"), folder.at(u".local/share/Sub/"));
    }
}

TEST_F(PosixProgramFoldersTest, AFileInPlaceOfTheDataFolderIsAFailure) {
    const Variable data("XDG_DATA_HOME", "/proc/self/exe");
    EXPECT_FALSE(folders.create(folders.ofUser(u"Sub")));
}

}  // namespace
