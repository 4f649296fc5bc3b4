#include <gtest/gtest.h>

#include "fakes/Text.h"
#include "storage/ini/IniEditor.h"
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
    EXPECT_EQ(afterSet(u"[A]\r\n[broken\r\nx=1 ]\r\n", u"A", u"x", u"2"), "[A]\r\n[broken\r\nx=2\r\n");
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
