#include <gtest/gtest.h>

#include "platform/qt/ShortTime.h"

namespace {

std::string at(const char* language, int hour) { return shortTime(QLocale(language), {hour, 5}).toStdString(); }

}  // namespace

TEST(ShortTimeTest, IsTheShortFormatOfTheLanguage) {
    EXPECT_EQ(at("de_DE", 9), "09:05");
    EXPECT_EQ(at("en_GB", 22), "22:05");
    EXPECT_EQ(at("ja_JP", 9), "9:05");
    EXPECT_EQ(QLocale("en_US").toString(QTime(22, 5), QLocale::ShortFormat).toStdString(), at("en_US", 22));
}

TEST(ShortTimeTest, ShowsNoSecondsInThePlainLocale) { EXPECT_EQ(at("C", 22), "22:05"); }

TEST(ShortTimeTest, ShowsNoLetterOfAFieldThatQtDoesNotSupport) {
    // "Bh:mm" and "B H:mm" in Qt 6.4.
    for (const char* language : {"zh_TW", "my_MM"}) {
        const QLocale locale(language);
        const QString shown = shortTime(locale, {10, 5});
        EXPECT_EQ(shown.count(u'B'), 0) << language;
        EXPECT_TRUE(shown.contains(locale.toString(QTime(10, 5), QStringLiteral("H:mm")))) << language;
    }
    if (QLocale("zh_TW").timeFormat(QLocale::ShortFormat) == "Bh:mm") {
        EXPECT_EQ(at("zh_TW", 10), "10:05");
        EXPECT_EQ(at("zh_TW", 22), "22:05");
    } else {
        EXPECT_NE(at("zh_TW", 10), at("zh_TW", 22));  // later versions of Qt name the half of the day
    }
}
