#include <windows.h>
#include <gtest/gtest.h>

#include "platform/win32/TemporaryFolder.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32ProgramFolders.h"

namespace {

TEST(ProgramFoldersTest, TheExecutablesFolderHoldsIt) {
    const std::wstring folder = toWide(Win32ProgramFolders().ofExecutable());
    EXPECT_NE(GetFileAttributesW((folder + L"win32_services_test.exe").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(ProgramFoldersTest, OnlyAFolderThatIsThereCanBeWritten) {
    Win32ProgramFolders folders;
    const TemporaryFolder folder;
    EXPECT_TRUE(folders.canWrite(fromWide(folder.file("").wstring())));
    EXPECT_FALSE(folders.canWrite(fromWide(folder.file("none\\").wstring())));
}

TEST(ProgramFoldersTest, TheUsersFolderIsMade) {
    Win32ProgramFolders folders;
    const std::u16string folder = folders.ofUser(u"Halcyon_K7.Test");
    EXPECT_TRUE(folder.ends_with(u"\\Halcyon_K7.Test\\"));
    EXPECT_TRUE(folders.canWrite(folder));
    EXPECT_TRUE(folders.ofUser(u"Halcyon_K7.Test") == folder) << "it is there already";
    EXPECT_NE(RemoveDirectoryW(toWide(folder).c_str()), 0) << "the probe is left in it";
}

}  // namespace
