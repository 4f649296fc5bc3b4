#include <gtest/gtest.h>

#include <array>
#include <span>
#include <utility>
#include <vector>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "storage/ini/IniReader.h"
#include "storage/text/Numbers.h"

using namespace std::string_literals;

namespace {

std::string get(std::u16string text, std::u16string_view section, std::u16string_view key) {
    IniReader profile(std::move(text));
    return narrow(profile.get(section, key));
}

}  // namespace

TEST(IniReaderTest, LinesEndAtCrLfLfOrCr) {
    EXPECT_EQ(get(u"[A]\r\nx=1\r\ny=2\r\n", u"A", u"y"), "2");
    EXPECT_EQ(get(u"[A]\nx=1\ny=2\n", u"A", u"y"), "2");
    EXPECT_EQ(get(u"[A]\rx=1\ry=2\r", u"A", u"y"), "2");
    EXPECT_EQ(get(u"[A]\nx=1\r\ny=2", u"A", u"y"), "2") << "the last line needs no end";
    EXPECT_EQ(get(u"[A]\n\rx=1", u"A", u"x"), "1");
}

TEST(IniReaderTest, OnlyTheGivenKeysAreRead) {
    const std::array<std::u16string_view, 2> keys = {u"x", u"y"};
    std::array<std::u16string_view, 2> values;
    IniReader profile(u"[A]\r\ny=2\r\nx=1\r\n");
    profile.get(u"A", std::span(keys).first(1), std::span(values).first(1));
    EXPECT_EQ(values, (std::array<std::u16string_view, 2>{u"1", u""}));
}

TEST(IniReaderTest, NamesCompareWithoutRegardToCase) {
    EXPECT_EQ(get(u"[tOTAL]\r\nDRMNumber=3\r\n", u"Total", u"drmnumber"), "3");
    EXPECT_EQ(get(u"[A]\r\nx_[=1\r\n", u"A", u"X_{"), "") << "only letters fold";
}

TEST(IniReaderTest, BlanksAroundNamesAndValuesAreDropped) {
    EXPECT_EQ(get(u"  [ A ]  \r\n\t x =  1 2\t\r\n", u"A", u"x"), "1 2");
}

TEST(IniReaderTest, TextAfterASectionNameIsIgnored) {
    EXPECT_EQ(get(u"[A] x=1\r\nx=2\r\n", u"A", u"x"), "2");
    EXPECT_EQ(get(u"[A\tB\v]\nx=1", u"a\tb\v", u"x"), "1") << "controls are part of a name";
    EXPECT_EQ(get(u"y=[A]\n;[A]\n [A\n[A]\nx=1", u"A", u"x"), "1") << "a bracket that begins no section";
    EXPECT_EQ(get(u"[A]\n[A", u"A", u"x"), "");
}

TEST(IniReaderTest, SectionsAreFoundInAnyOrder) {
    IniReader profile(u"[A]\nx=1\n[B]\nx=2\n[a]\nx=3\n[C]\nx=4\n");
    for (const auto& [section, value] :
         {std::pair(u"A", u"1"), {u"B", u"2"}, {u"A", u"1"}, {u"C", u"4"}, {u"B", u"2"}, {u"D", u""}, {u"a", u"1"}}) {
        EXPECT_EQ(profile.get(section, u"x"), value);
    }
}

TEST(IniReaderTest, SeveralKeysAreReadAtOnce) {
    IniReader profile(u"[A]\nx=\ny=2\nX=3\nz=4\n[B]\nw=5\n");
    std::array<std::u16string_view, 3> values = {u"as it was", u"as it was", u"as it was"};
    profile.get(u"A", std::array<std::u16string_view, 3>{u"z", u"x", u"w"}, values);
    EXPECT_EQ(values, (std::array<std::u16string_view, 3>{u"4", u"", u""})) << "the first x is empty, w is in B";
}

TEST(IniReaderTest, KeysInAnyOrderAndSpellingAreReadAtOnce) {
    const std::array<std::u16string_view, 3> keys = {u"x", u"y", u"z"};
    const std::array<std::u16string_view, 3> expected = {u"1", u"2", u"3"};
    for (const std::u16string_view text :
         {u"[A]\nx=1\ny=2\nz=3\n", u"[A]\nz=3\nx=1\ny=2", u"[A]\nX=1\nx=4\n y =2\n[\nz= 3\n",
          u"[A]\n;x=4\ny=2\nX=1\nx=4\nxx=4\nz='3'", u"[A]\nx=1\nx=4\ny=2\ny=4\nz=3\nz=4\n"}) {
        IniReader profile{std::u16string(text)};
        std::array<std::u16string_view, 3> values;
        profile.get(u"A", keys, values);
        EXPECT_EQ(values, expected) << narrow(std::u16string(text));
    }
}

TEST(IniReaderTest, AValueReadWithOthersEndsAtItsFirstNul) {
    IniReader profile(u"[A]\nx=a\0b\ny= \0\nz=c\n"s);
    std::array<std::u16string_view, 3> values;
    profile.get(u"A", std::array<std::u16string_view, 3>{u"x", u"y", u"z"}, values);
    EXPECT_EQ(values, (std::array<std::u16string_view, 3>{u"a", u"", u"c"}));
}

// Whatever has been read before, of equal sections the first counts and nothing is passed over.
TEST(IniReaderTest, TheOrderOfReadingChangesNoValue) {
    const std::vector<std::u16string_view> sections = {u"A", u"B", u"C", u"D", u"missing"};
    for (const std::u16string_view first : sections) {
        for (const std::u16string_view second : sections) {
            IniReader profile(u"[A]x\nx=1\n[B]\nx=2\ny=[A]\n[a]\nx=3\n  [ C ]\nx=4\n[B]\nx=5\n[D]\nx=6\n[C]\nx=7");
            std::array<std::u16string_view, 1> value;
            profile.get(first, std::array<std::u16string_view, 1>{u"x"}, value);
            EXPECT_EQ(profile.hasSection(second), second != u"missing");
            for (const auto& [section, expected] : {std::pair(u"A", u"1"), {u"B", u"2"}, {u"C", u"4"}, {u"D", u"6"}}) {
                EXPECT_EQ(profile.get(section, u"x"), expected) << narrow(std::u16string(first));
            }
        }
    }
}

TEST(IniReaderTest, SectionsThatDifferInTheirLastDigitsAreDistinct) {
    const std::vector<std::u16string_view> names = {u"X",   u"X0", u"X00", u"X1", u"X01",
                                                    u"X10", u"X9", u"0",   u"",   u"10"};
    std::u16string text;
    for (const std::u16string_view name : names) {
        text += u'[' + std::u16string(name) + u"]\nname='" + std::u16string(name) + u"'\n";
    }
    text += u"[x1]\nname=later\n[10]\nname=later\n";
    IniReader forward(text);
    IniReader backward(text);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(forward.get(names[i], u"name"), names[i]);
        EXPECT_EQ(backward.get(names[names.size() - 1 - i], u"name"), names[names.size() - 1 - i]);
    }
    EXPECT_FALSE(forward.hasSection(u"X2"));
    EXPECT_FALSE(forward.hasSection(u"X100"));
    EXPECT_FALSE(forward.hasSection(u"1"));
}

TEST(IniReaderTest, NumberedSectionsInAnySpellingAreFoundInOrder) {
    IniReader profile(
        u"[X1]\nv=1\n[ X2 ]\nv=2\n[x3]\nv=3\n[X4\nv=0\nw=[X4]\n;[X4]\n  [X4] v=0\nv=4\n[X50]\nv=50\n[X5]\nv=5\n[X6");
    for (const auto& [section, value] :
         {std::pair(u"X1", u"1"), {u"X2", u"2"}, {u"X3", u"3"}, {u"X4", u"4"}, {u"X5", u"5"}, {u"X50", u"50"}}) {
        std::array<std::u16string_view, 1> values;
        profile.get(section, std::array<std::u16string_view, 1>{u"v"}, values);
        EXPECT_EQ(values[0], value);
    }
    EXPECT_FALSE(profile.hasSection(u"X6"));
}

TEST(IniReaderTest, OnePairOfEqualQuotesIsDropped) {
    EXPECT_EQ(get(u"[A]\r\nx=\" a \"", u"A", u"x"), " a ");
    EXPECT_EQ(get(u"[A]\r\nx='a'", u"A", u"x"), "a");
    EXPECT_EQ(get(u"[A]\r\nx=\"\"a\"\"", u"A", u"x"), "\"a\"");
    EXPECT_EQ(get(u"[A]\r\nx=\"a'", u"A", u"x"), "\"a'");
    EXPECT_EQ(get(u"[A]\r\nx=\"", u"A", u"x"), "\"");
    EXPECT_EQ(get(u"[A]\r\nx=\"\"", u"A", u"x"), "");
}

TEST(IniReaderTest, OfDuplicateNamesTheFirstCounts) {
    const std::u16string text = u"[A]\r\nx=1\r\nX=2\r\n[B]\r\nx=3\r\n[a]\r\nx=4\r\nz=5\r\n";
    EXPECT_EQ(get(text, u"A", u"x"), "1");
    EXPECT_EQ(get(text, u"A", u"z"), "") << "a second section of the name does not continue the first";
}

TEST(IniReaderTest, OfAHundredEqualKeysTheFirstIsRead) {
    std::u16string text = u"[A]\r\n";
    for (int i = 0; i < 100; ++i) {
        text += u"x=" + decimal(i) + u"\r\n";
    }
    EXPECT_EQ(get(text, u"A", u"x"), "0");
}

TEST(IniReaderTest, ALineThatIsNeitherSectionNorKeyIsSkipped) {
    const std::u16string text = u" \r\nx=0\r\n[A]\r\n;x=1\r\n  ; x=2\r\nnothing\r\n=3\r\n[open\r\n\r\nx=4\r\n"s;
    EXPECT_EQ(get(text, u"A", u"x"), "4");
    EXPECT_EQ(get(text, u"A", u""), "");
}

TEST(IniReaderTest, ANulInALineIsKept) {
    const std::u16string text = u"[A]\r\nx=1\r\n\0\r\n[kvt update end]\r\n[B]\r\ny=a\0b\r\n"s;
    EXPECT_EQ(get(text, u"A", u"x"), "1");
    IniReader profile(text);
    EXPECT_EQ(profile.get(u"B", u"y"), u"a\0b"s);
}

TEST(IniReaderTest, AtMost254UnitsOfAValueAreReturned) {
    const auto length = [](std::size_t units) {
        return get(u"[A]\r\nx=" + std::u16string(units, u'v') + u"\r\n", u"A", u"x").size();
    };
    EXPECT_EQ(length(253), 253U);
    EXPECT_EQ(length(254), 254U);
    EXPECT_EQ(length(255), 254U);
    EXPECT_EQ(length(400), 254U);
}

TEST(IniReaderTest, AMissingSectionOrKeyIsEmpty) {
    EXPECT_EQ(get(u"", u"A", u"x"), "");
    EXPECT_EQ(get(u"[A]\r\nx=1\r\n", u"B", u"x"), "");
    EXPECT_EQ(get(u"[A]\r\nx=1\r\n", u"A", u"xx"), "");
    EXPECT_EQ(IniReader().get(u"A", u"x"), u"");
}

TEST(IniReaderTest, AValueKeepsItsEqualsSigns) { EXPECT_EQ(get(u"[A]\nx=a=b", u"A", u"x"), "a=b"); }

TEST(IniReaderTest, FindsEverySectionOfALargeFile) {
    constexpr int kCount = 32767;
    std::u16string text;
    for (int i = 0; i < kCount; ++i) {
        text += u"[DRMSchedule" + decimal(i) + u"]\r\nFrequency=" + decimal(i) + u"\r\n";
    }
    IniReader profile(std::move(text));
    int wrong = 0;
    for (int i = 0; i < kCount; ++i) {
        wrong += profile.get(u"DRMSCHEDULE" + decimal(i), u"frequency") == decimal(i) ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(IniReaderTest, AFileWithAByteOrderMarkIsUtf16AnyOtherAnsi) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/u"] = "\xFF\xFE[\0A\0]\0\n\0x\0=\0\x2D\x4E"s;
    files.files[u"/a"] = "[A]\nx=\xE9";
    EXPECT_EQ(readIni(u"/u", files, codePages).get(u"A", u"x"), u"中");
    EXPECT_EQ(readIni(u"/a", files, codePages).get(u"A", u"x"), u"é");
}

TEST(IniReaderTest, AnOddLastByteOfUtf16IsIgnored) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/u"] = "\xFF\xFE[\0A\0]\0\n\0x\0=\0v\0w"s;
    EXPECT_EQ(readIni(u"/u", files, codePages).get(u"A", u"x"), u"v");
}

TEST(IniReaderTest, AFileOfMoreThan31BitsIsNotRead) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/huge"] = "[A]\nx=1";
    files.sizes[u"/huge"] = 0x80000000U;
    EXPECT_EQ(readIni(u"/huge", files, codePages).get(u"A", u"x"), u"");
    EXPECT_TRUE(files.accesses.empty());
}

TEST(IniReaderTest, AFileOf31BitsIsRead) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/large"] = "[A]\nx=1";
    files.sizes[u"/large"] = 0x7FFFFFFFU;
    EXPECT_EQ(readIni(u"/large", files, codePages).get(u"A", u"x"), u"1");
}

TEST(IniReaderTest, AMissingOrUnreadableFileIsEmpty) {
    FakeFiles files;
    FakeCodePages codePages;
    files.files[u"/bad"] = "[A]\nx=1";
    files.failing.insert(u"/bad");
    EXPECT_EQ(readIni(u"/bad", files, codePages).get(u"A", u"x"), u"");
    EXPECT_EQ(readIni(u"/none", files, codePages).get(u"A", u"x"), u"");
}
