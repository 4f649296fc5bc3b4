#include <gtest/gtest.h>

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
