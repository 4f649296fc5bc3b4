#include <gtest/gtest.h>

#include <string>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "storage/ini/IniFile.h"

using namespace std::string_literals;

TEST(IniFileTest, AFileThatCannotBeReadIsNotChanged) {
    FakeFiles files;
    FakeCodePages codePages;
    int changes = 0;
    const auto change = [&changes](IniEditor& edit) {
        ++changes;
        edit.set(u"A", u"x", u"1");
    };
    files.files[u"/x.ini"] = "old";
    files.unreadable = {u"/x.ini"};
    EXPECT_FALSE(editIniFile(u"/x.ini", files, codePages, change));
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(files.files[u"/x.ini"], "old");
    EXPECT_TRUE(editIniFile(u"/new.ini", files, codePages, change));
    EXPECT_EQ(files.files[u"/new.ini"], "[A]\r\nx=1\r\n");
    files.failing = {u"/NEW.K7N"};
    EXPECT_FALSE(editIniFile(u"/new.ini", files, codePages, change)) << "cannot be written";
}

TEST(IniFileTest, WriteIniValueKeepsTheEncodingOfTheFile) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/u"] = "\xFF\xFE \0"s;
    files.files[u"/a"] = "[A]\r\nx=\xE9\r\n";
    WriteIniValue(u"A", u"x", u"中", u"/u", files, codePages);
    WriteIniValue(u"A", u"y", u"€中", u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/u"], "\xFF\xFE \0\r\0\n\0[\0A\0]\0\r\0\n\0x\0=\0\x2D\x4E\r\0\n\0"s);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=\xE9\r\ny=\x80?\r\n");
}

TEST(IniFileTest, WriteIniValueCreatesAMissingFileWithoutAByteOrderMark) {
    FakeFiles files;
    FakeCodePages codePages;
    WriteIniValue(u"A", u"x", u"1", u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=1\r\n");
}

TEST(IniFileTest, WriteIniValueTextsEndAtTheirFirstNul) {
    FakeFiles files;
    FakeCodePages codePages;
    WriteIniValue(u"A\0B"s, u"x\0y"s, u"1\0002"s, u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=1\r\n");
}

TEST(IniFileTest, WriteIniValueKeepsAFileThatCannotBeReadOrWritten) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/a"] = "[A]\r\nx=1\r\n";
    files.readOnly.insert(u"/a");
    WriteIniValue(u"A", u"x", u"2", u"/a", files, codePages);
    files.failing.insert(u"/a");
    WriteIniValue(u"A", u"x", u"2", u"/a", files, codePages);
    EXPECT_EQ(files.files, (std::map<std::u16string, std::string>{{u"/a", "[A]\r\nx=1\r\n"}}));
}
