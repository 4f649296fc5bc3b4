#include <gtest/gtest.h>

#include <string>

#include "storage/ini/IniSyntax.h"

TEST(IniSyntaxTest, OnlyTheLettersAToZAreFolded) {
    for (char16_t capital = u'A'; capital <= u'Z'; ++capital) {
        const auto small = static_cast<char16_t>(capital - u'A' + u'a');
        EXPECT_TRUE(sameName({&capital, 1}, {&small, 1})) << static_cast<char>(capital);
    }
    EXPECT_FALSE(sameName(u"@", u"`"));
    EXPECT_FALSE(sameName(u"[", u"{"));
}

TEST(IniSyntaxTest, TheEndOfALineIsNotSearchedPastTheText) {
    const std::u16string_view text = u"a\r\n";
    EXPECT_EQ(findLineEnd(text, 0).next, 3U);
    EXPECT_EQ(findLineEnd(text.substr(0, 2), 0).next, 2U) << "the LF is not part of the text";
    EXPECT_EQ(findLineEnd(text.substr(0, 1), 0).next, 1U);
}

TEST(IniSyntaxTest, ControlsInALineAreReportedAndEndNoLine) {
    const std::u16string_view text(u"a\tb\0c\r\nd\n\v", 10);
    const IniLineEnd first = findLineEnd(text, 0);
    EXPECT_EQ(first.end, 5U);
    EXPECT_EQ(first.next, 7U);
    EXPECT_TRUE(first.hasControls);
    const IniLineEnd second = findLineEnd(text, first.next);
    EXPECT_EQ(second.end, 8U);
    EXPECT_FALSE(second.hasControls);
    EXPECT_EQ(findLineEnd(text, second.next).end, 10U) << "a control at the end of the text";
}

TEST(IniSyntaxTest, AValueIsTrimmedAtBothEnds) {
    for (const std::u16string_view raw : {u" a", u"a ", u"\ta", u"a\t", u"'a'", u"\"a\"", u" 'a' "}) {
        EXPECT_EQ(iniValue(raw), u"a");
    }
    for (const std::u16string_view whole : {u"'a", u"a'", u"a\"", u"!a!", u"(a)", u"\"a'"}) {
        EXPECT_EQ(iniValue(whole), whole);
    }
}

TEST(IniSyntaxTest, TheKindOfALineDoesNotDependOnBlanksBeforeIt) {
    for (const std::u16string blanks : {u"", u" ", u"\t "}) {
        EXPECT_EQ(parseIniLine(blanks + u"[A]").kind, IniLineKind::Section);
        EXPECT_EQ(parseIniLine(blanks + u"x=1").kind, IniLineKind::Key);
        EXPECT_EQ(parseIniLine(blanks + u";x=1").kind, IniLineKind::Other);
        EXPECT_EQ(parseIniLine(blanks + u"=1").kind, IniLineKind::Other);
        EXPECT_EQ(parseIniLine(blanks).kind, IniLineKind::Other);
    }
}
