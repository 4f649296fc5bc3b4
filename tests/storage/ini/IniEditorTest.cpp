#include <gtest/gtest.h>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "storage/ini/IniEditor.h"
#include "storage/ini/IniFile.h"
#include "storage/text/Numbers.h"

using namespace std::string_literals;

namespace {

std::string afterSet(std::u16string text, std::u16string_view section, std::u16string_view key,
                     std::u16string_view value) {
    IniEditor edit(std::move(text));
    edit.set(section, key, value);
    return narrow(edit.compose());
}

}  // namespace

TEST(IniEditorTest, AnUnchangedTextKeepsItsBytes) {
    const std::u16string text = u" \r\n; note\n[A]\rx = 1\r\n\r\n[a]\nnothing\n\0\n[B"s;
    EXPECT_EQ(IniEditor(text).compose(), text);
}

TEST(IniEditorTest, ABracketIsNotClosedByALaterLine) {
    EXPECT_EQ(afterSet(u"[broken\r\n[A]\r\nx=1\r\n", u"A", u"x", u"2"), "[broken\r\n[A]\r\nx=2\r\n");
    EXPECT_EQ(afterSet(u"y\r\n[broken\r\n[A]\r\nx=1\r\n", u"A", u"x", u"2"), "y\r\n[broken\r\n[A]\r\nx=2\r\n");
}

TEST(IniEditorTest, AFileThatCannotBeReadIsNotChanged) {
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
}

TEST(IniEditorTest, ANewSectionIsAddedAtTheEndOnItsOwnLine) {
    EXPECT_EQ(afterSet(u"", u"A", u"x", u"1"), "[A]\r\nx=1\r\n");
    EXPECT_EQ(afterSet(u" ", u"A", u"x", u"1"), " \r\n[A]\r\nx=1\r\n");
    EXPECT_EQ(afterSet(u"[B]\r\ny=2\r\n", u"A", u"x", u"1"), "[B]\r\ny=2\r\n[A]\r\nx=1\r\n");
    EXPECT_EQ(afterSet(u"[B]\ny=2", u"A", u"x", u"1"), "[B]\ny=2\r\n[A]\r\nx=1\r\n");
}

TEST(IniEditorTest, ANewKeyIsAddedAtTheEndOfItsSection) {
    EXPECT_EQ(afterSet(u"[A]\r\nx=1\r\n[B]\r\n", u"a", u"y", u"2"), "[A]\r\nx=1\r\ny=2\r\n[B]\r\n");
    EXPECT_EQ(afterSet(u"[A]\r\nx=1\r\n\r\n[B]\r\n", u"A", u"y", u"2"), "[A]\r\nx=1\r\ny=2\r\n\r\n[B]\r\n");
    EXPECT_EQ(afterSet(u"[A]", u"A", u"y", u"2"), "[A]\r\ny=2\r\n");
}

TEST(IniEditorTest, AnExistingKeyChangesInPlace) {
    EXPECT_EQ(afterSet(u"[A]\r\nX = 1\r\ny=2\r\n", u"A", u"x", u"9"), "[A]\r\nX=9\r\ny=2\r\n");
    EXPECT_EQ(afterSet(u"[A]\r\nx=1\r\nx=2\r\n[A]\r\nx=3\r\n", u"A", u"x", u"9"),
              "[A]\r\nx=9\r\nx=2\r\n[A]\r\nx=3\r\n");
}

TEST(IniEditorTest, ALineEndInAValueBecomesABlank) {
    EXPECT_EQ(afterSet(u"", u"A", u"x", u"1\r\n[B]\ny=2"), "[A]\r\nx=1  [B] y=2\r\n");
}

TEST(IniEditorTest, RemovingASectionRemovesItsLinesUpToTheNext) {
    IniEditor edit(u"[A]\r\nx=1\r\n; note\r\n\r\n[B]\r\ny=2\r\n[a]\r\nx=3\r\n");
    edit.removeSection(u"A");
    edit.removeSection(u"None");
    EXPECT_EQ(narrow(edit.compose()), "[B]\r\ny=2\r\n[a]\r\nx=3\r\n");
    edit.set(u"A", u"x", u"4");
    EXPECT_EQ(narrow(edit.compose()), "[B]\r\ny=2\r\n[a]\r\nx=4\r\n")
        << "the second section of the name is the first now";
    edit.removeSection(u"A");
    edit.removeSection(u"A");
    edit.set(u"A", u"x", u"5");
    EXPECT_EQ(narrow(edit.compose()), "[B]\r\ny=2\r\n[A]\r\nx=5\r\n");
}

TEST(IniEditorTest, SetsManyKeysOfManySections) {
    IniEditor edit(u"");
    std::string expected;
    for (int i = 0; i < 10000; ++i) {
        edit.set(u"S" + decimal(i), u"x", decimal(i));
        expected += "[S" + std::to_string(i) + "]\r\nx=" + std::to_string(i) + "\r\n";
    }
    EXPECT_EQ(narrow(edit.compose()), expected);
}

TEST(IniEditorTest, WriteIniValueKeepsTheEncodingOfTheFile) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/u"] = "\xFF\xFE \0"s;
    files.files[u"/a"] = "[A]\r\nx=\xE9\r\n";
    WriteIniValue(u"A", u"x", u"中", u"/u", files, codePages);
    WriteIniValue(u"A", u"y", u"€中", u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/u"], "\xFF\xFE \0\r\0\n\0[\0A\0]\0\r\0\n\0x\0=\0\x2D\x4E\r\0\n\0"s);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=\xE9\r\ny=\x80?\r\n");
}

TEST(IniEditorTest, WriteIniValueCreatesAMissingFileWithoutAByteOrderMark) {
    FakeFiles files;
    FakeCodePages codePages;
    WriteIniValue(u"A", u"x", u"1", u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=1\r\n");
}

TEST(IniEditorTest, WriteIniValueTextsEndAtTheirFirstNul) {
    FakeFiles files;
    FakeCodePages codePages;
    WriteIniValue(u"A\0B"s, u"x\0y"s, u"1\0002"s, u"/a", files, codePages);
    EXPECT_EQ(files.files[u"/a"], "[A]\r\nx=1\r\n");
}

TEST(IniEditorTest, WriteIniValueKeepsAFileThatCannotBeReadOrWritten) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/a"] = "[A]\r\nx=1\r\n";
    files.readOnly.insert(u"/a");
    WriteIniValue(u"A", u"x", u"2", u"/a", files, codePages);
    files.failing.insert(u"/a");
    WriteIniValue(u"A", u"x", u"2", u"/a", files, codePages);
    EXPECT_EQ(files.files, (std::map<std::u16string, std::string>{{u"/a", "[A]\r\nx=1\r\n"}}));
}
