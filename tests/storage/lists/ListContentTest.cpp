#include <gtest/gtest.h>

#include "storage/lists/ListContent.h"

TEST(ListContentTest, ASectionStartsALine) {
    for (const char* const bytes : {"[", "[x]", " \r\n[Total]", "\xEF\xBB\xBF[Total]", "a\n\n \t[b", "\r[c"}) {
        EXPECT_TRUE(ListContent::hasSection(bytes)) << bytes;
    }
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {""sv, " "sv, "\xEF\xBB\xBF "sv, "a[b]"sv, "a\r\nb=[c]\r\n"sv,
                                         "\xFF\xFE[\0a\0]\0\r\0\n\0[\0b\0]\0"sv, "\0\0[\0"sv}) {
        EXPECT_FALSE(ListContent::hasSection(bytes)) << bytes;
    }
}

TEST(ListContentTest, ARecordIsASectionOfAnyList) {
    for (const char* const bytes :
         {"[DRMSchedule0]", "[Total]\r\n[AMSchedule12]\r\n", "[fmschedule9]", " [ FAVSCHEDULE1 ]"}) {
        EXPECT_TRUE(ListContent::hasRecord(bytes)) << bytes;
    }
    for (const char* const bytes :
         {"", "[Total]\r\ndrmnumber=1\r\n", "[DRMSchedule]", "[DRMSchedule", "[DRMSchedul", "[XMSchedule0]",
          "DRMSchedule0", "x=[DRMSchedule0]", "[AMScheduleA]", "[AMSchedule/]", "[AMSchedule:]"}) {
        EXPECT_FALSE(ListContent::hasRecord(bytes)) << bytes;
    }
}

TEST(ListContentTest, RecordsAndForeignTextsAreWorthKeeping) {
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {"[FMSchedule0]"sv, "a text"sv, "\0\0x"sv}) {
        EXPECT_TRUE(ListContent::isWorthKeeping(bytes)) << bytes;
    }
    for (const std::string_view bytes : {""sv, "\xEF\xBB\xBF "sv, " \r\n\t"sv, "\0\0\0\0"sv,
                                         " \r\n[Total]\r\ndrmnumber=0\r\n\r\n[kvt update end]\r\n"sv}) {
        EXPECT_FALSE(ListContent::isWorthKeeping(bytes)) << bytes;
    }
}
