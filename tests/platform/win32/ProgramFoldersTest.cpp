#include <windows.h>
#include <gtest/gtest.h>

#include "platform/win32/TemporaryFolder.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32ProgramFolders.h"

namespace {

TEST(ProgramFoldersTest, TheExecutableIsInItsFolder) {
    const std::wstring folder = toWide(Win32ProgramFolders().ofExecutable());
    EXPECT_NE(GetFileAttributesW((folder + L"win32_services_test.exe").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(ProgramFoldersTest, InstallersUseTheProgramFilesFolders) {
    Win32ProgramFolders folders;
    for (const char16_t* installed : {u"C:\\Program Files\\Halcyon_K7\\", u"c:\\PROGRAM FILES\\Halcyon_K7\\",
                                      u"C:\\Program Files (x86)\\Halcyon_K7\\", u"C:\\Program Files\\"}) {
        EXPECT_TRUE(folders.isForInstalledPrograms(installed));
    }
    for (const char16_t* portable : {u"C:\\Program Filesystem\\", u"C:\\", u"D:\\Program Files\\", u"C:\\users\\"}) {
        EXPECT_FALSE(folders.isForInstalledPrograms(portable));
    }
}

TEST(ProgramFoldersTest, AShortNameIsThatOfItsFolder) {
    wchar_t name[MAX_PATH] = L"";
    ASSERT_NE(GetShortPathNameW(L"C:\\Program Files\\", name, MAX_PATH), 0U);
    EXPECT_TRUE(Win32ProgramFolders().isForInstalledPrograms(fromWide(name)));
}

TEST(ProgramFoldersTest, OnlyAnExistingFolderIsWritable) {
    Win32ProgramFolders folders;
    const TemporaryFolder folder;
    EXPECT_TRUE(folders.canWrite(fromWide(folder.file("").wstring())));
    EXPECT_FALSE(folders.canWrite(fromWide(folder.file("none\\").wstring())));
}

TEST(ProgramFoldersTest, TheUsersFolderIsCreated) {
    Win32ProgramFolders folders;
    const std::u16string folder = folders.ofUser(u"Halcyon_K7.Test");
    EXPECT_TRUE(folder.ends_with(u"\\Halcyon_K7.Test\\"));
    EXPECT_EQ(GetFileAttributesW(toWide(folder).c_str()), INVALID_FILE_ATTRIBUTES) << "finding it creates nothing";
    EXPECT_TRUE(folders.create(folder));
    EXPECT_TRUE(folders.create(folder)) << "it exists";
    EXPECT_TRUE(folders.canWrite(folder));
    EXPECT_NE(RemoveDirectoryW(toWide(folder).c_str()), 0) << "the probe is left in it";
}

}  // namespace
