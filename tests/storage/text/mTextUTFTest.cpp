#include <gtest/gtest.h>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "storage/text/mTextUTF.h"

using namespace std::string_literals;

namespace {

constexpr auto kPath = u"/text.ini";

class mTextUTFTest : public testing::Test {
protected:
    std::u16string read(std::string bytes, TextFormat forced) {
        files.files[kPath] = std::move(bytes);
        format = forced;
        return text.ReadTextFile(kPath, format);
    }
    bool write(std::u16string_view content, TextFormat as, bool writeBom = true, bool halveLength = false) {
        format = as;
        return text.WriteTextFile(kPath, content, false, format, as, writeBom, halveLength);
    }
    bool append(std::u16string_view content, TextFormat as, TextFormat defaultFormat = TextFormat::Utf8,
                bool writeBom = true) {
        format = as;
        return text.WriteTextFile(kPath, content, true, format, defaultFormat, writeBom, false);
    }
    const std::string& bytes() { return files.files[kPath]; }

    FakeFiles files;
    FakeCodePages codePages;
    mTextUTF text{files, codePages};
    TextFormat format = TextFormat::Detect;
};

}  // namespace

TEST(mTextUTFTestPlain, DetectTextFormatFollowsTheMarkLongestFirst) {
    const auto expect = [](const std::string& start, TextFormat format, std::size_t length) {
        const DetectedFormat detected = DetectTextFormat(start);
        EXPECT_EQ(detected.format, format);
        EXPECT_EQ(detected.markLength, length);
    };
    expect("\xFF\xFE\x00\x00"s, TextFormat::Utf32Le, 4);
    expect("\x00\x00\xFE\xFF"s, TextFormat::Utf32Be, 4);
    expect("\xFF\xFE\x41\x00"s, TextFormat::Utf16Le, 2);
    expect("\xFE\xFF\x00\x41"s, TextFormat::Utf16Be, 2);
    expect("\xEF\xBB\xBF"s, TextFormat::Utf8, 3);
    expect("\xEF\xBB"s, TextFormat::Ansi, 0);
    expect("text", TextFormat::Ansi, 0);
    expect("", TextFormat::Ansi, 0);
}

TEST(mTextUTFTestPlain, DetectTextFormatMissingBytesCountAsZero) {
    EXPECT_EQ(DetectTextFormat("\xFF\xFE"s).format, TextFormat::Utf32Le);
    EXPECT_EQ(DetectTextFormat("\xFF\xFE\x00"s).format, TextFormat::Utf32Le);
}

TEST(mTextUTFTestPlain, TextFormatBomIsEmptyForAnsiAndForNoFormat) {
    EXPECT_EQ(TextFormatBom(TextFormat::Ansi), "");
    EXPECT_EQ(TextFormatBom(TextFormat::Detect), "");
    EXPECT_EQ(TextFormatBom(static_cast<TextFormat>(6)), "");
    EXPECT_EQ(TextFormatBom(TextFormat::Utf32Be), "\x00\x00\xFE\xFF"s);
}

TEST(mTextUTFTestPlain, PtrToStrWEndsAtTheFirstNul) {
    const std::u16string text = u"ab\0cd"s;
    EXPECT_EQ(PtrToStrW(text.c_str()), u"ab");
    EXPECT_EQ(PtrToStrW(std::u16string_view(text)), u"ab");
    EXPECT_EQ(PtrToStrW(std::u16string_view(u"abc")), u"abc");
    EXPECT_EQ(PtrToStrW(static_cast<const char16_t*>(nullptr)), u"");
}

TEST_F(mTextUTFTest, DetectedUtf8IsReadWithoutItsMarkAndReported) {
    EXPECT_EQ(read("\xEF\xBB\xBF"
                   "a\xC3\xA9",
                   TextFormat::Detect),
              u"aé");
    EXPECT_EQ(format, TextFormat::Utf8);
}

TEST_F(mTextUTFTest, WithoutMarkAFileIsAnsi) {
    EXPECT_EQ(read("a\xE9", TextFormat::Detect), u"aé");
    EXPECT_EQ(format, TextFormat::Ansi);
}

TEST_F(mTextUTFTest, ForcedUtf8AcceptsAFileWithAndWithoutMark) {
    EXPECT_EQ(read("\xC3\xA9", TextFormat::Utf8), u"é");
    EXPECT_EQ(read("\xEF\xBB\xBF\xC3\xA9", TextFormat::Utf8), u"é");
}

TEST_F(mTextUTFTest, ForcedFormatKeepsTheMarkOfAnother) {
    EXPECT_EQ(read("\xFF\xFE"
                   "A\0"s,
                   TextFormat::Utf8),
              u"\uFFFD\uFFFDA\0"s);
    EXPECT_EQ(format, TextFormat::Utf8);
    EXPECT_EQ(read("\xEF\xBB\xBF"
                   "A",
                   TextFormat::Ansi),
              u"ï»¿A");
}

TEST_F(mTextUTFTest, Utf16ReadingYieldsOneUnitMoreThanBytes) {
    const std::u16string text5 = read(
        "\xFF\xFE"
        "a\0b\0c\0d\0e\0"s,
        TextFormat::Utf16Le);
    EXPECT_EQ(text5, u"abcde\0\0\0\0\0\0"s);
    EXPECT_EQ(text5.size(), 11U);
    EXPECT_EQ(read("\xFF\xFE"
                   "a\0b\0c"s,
                   TextFormat::Detect),
              u"abc\0\0\0"s)
        << "half a unit is read too";
    EXPECT_EQ(read("", TextFormat::Utf16Le), u"\0"s);
}

TEST_F(mTextUTFTest, HalvingReversesTheLongRead) {
    const std::u16string odd = read(
        "\xFF\xFE"
        "a\0b\0c\0d\0e\0"s,
        TextFormat::Utf16Le);
    EXPECT_TRUE(write(odd, TextFormat::Utf8, false, true));
    EXPECT_EQ(bytes(), "abcde\0"s);
    const std::u16string even = read(
        "\xFF\xFE"
        "a\0b\0c\0d\0e\0f\0"s,
        TextFormat::Utf16Le);
    EXPECT_EQ(even.size(), 13U);
    EXPECT_TRUE(write(even, TextFormat::Utf8, false, true));
    EXPECT_EQ(bytes(), "abcdef");
}

TEST_F(mTextUTFTest, HalvesAreRoundedToEven) {
    const auto half = [this](std::size_t length) {
        write(std::u16string(length, u'x'), TextFormat::Ansi, false, true);
        return bytes().size();
    };
    EXPECT_EQ(half(2), 1U);
    EXPECT_EQ(half(3), 2U);
    EXPECT_EQ(half(5), 2U);
    EXPECT_EQ(half(7), 4U);
    EXPECT_EQ(half(9), 4U);
}

TEST_F(mTextUTFTest, AHalfOfNoUnitsFailsAndLeavesTheMark) {
    EXPECT_FALSE(write(u"x", TextFormat::Utf8, true, true));
    EXPECT_EQ(bytes(), "\xEF\xBB\xBF");
}

TEST_F(mTextUTFTest, BigEndianIsSwappedBothWays) {
    EXPECT_EQ(read("\xFE\xFF\x00"
                   "A\x4E\x2D"s,
                   TextFormat::Detect),
              u"A中");
    EXPECT_EQ(format, TextFormat::Utf16Be);
    EXPECT_TRUE(write(u"A中", TextFormat::Utf16Be));
    EXPECT_EQ(bytes(),
              "\xFE\xFF\x00"
              "A\x4E\x2D"s);
}

TEST_F(mTextUTFTest, Utf32IsRejected) {
    EXPECT_EQ(read("\xFF\xFE\x00\x00"
                   "A\0\0\0"s,
                   TextFormat::Detect),
              u"");
    EXPECT_EQ(format, TextFormat::Utf32Le);
    EXPECT_FALSE(write(u"A", TextFormat::Utf32Le));
    EXPECT_EQ(bytes(), "\xFF\xFE\x00\x00"s) << "nothing follows the mark";
    EXPECT_FALSE(write(u"A", TextFormat::Utf32Be));
}

TEST_F(mTextUTFTest, AnUnknownFormatTouchesNothing) {
    EXPECT_EQ(read("abc", static_cast<TextFormat>(6)), u"");
    EXPECT_EQ(read("abc", static_cast<TextFormat>(-2)), u"");
    EXPECT_FALSE(write(u"x", static_cast<TextFormat>(6)));
    EXPECT_FALSE(write(u"x", TextFormat::Detect)) << "nothing to detect when not appending";
    EXPECT_EQ(bytes(), "abc");
    EXPECT_TRUE(files.accesses.empty());
}

TEST_F(mTextUTFTest, AMissingFileIsAnEmptyTextAndDetectsNothing) {
    EXPECT_EQ(text.ReadTextFile(u"/none", format), u"");
    EXPECT_EQ(format, TextFormat::Detect);
}

TEST_F(mTextUTFTest, ASizeOver31BitsIsRejectedWithoutReading) {
    files.sizes[u"/huge"] = 0x80000000ULL;
    EXPECT_EQ(text.ReadTextFile(u"/huge", format), u"");
    EXPECT_TRUE(files.accesses.empty());
    files.sizes[u"/huge"] = 0x7FFFFFFFULL;
    text.ReadTextFile(u"/huge", format);
    EXPECT_EQ(files.accesses, std::vector<std::string>{"read /huge"});
}

TEST_F(mTextUTFTest, ABlankInUtf16HasTheInitialBytes) {
    EXPECT_TRUE(write(u" ", TextFormat::Utf16Le));
    EXPECT_EQ(bytes(), "\xFF\xFE\x20\x00"s);
}

TEST_F(mTextUTFTest, AnEmptyTextLeavesTheMark) {
    EXPECT_TRUE(write(u"long text", TextFormat::Utf8));
    EXPECT_TRUE(write(u"", TextFormat::Utf8));
    EXPECT_EQ(bytes(), "\xEF\xBB\xBF");
    EXPECT_TRUE(write(u"", TextFormat::Utf8, false));
    EXPECT_EQ(bytes(), "");
}

TEST_F(mTextUTFTest, AppendingToAMissingOrEmptyFileWritesItsMark) {
    EXPECT_TRUE(append(u"a", TextFormat::Detect, TextFormat::Utf16Le));
    EXPECT_EQ(format, TextFormat::Utf16Le);
    EXPECT_EQ(bytes(),
              "\xFF\xFE"
              "a\0"s);
    files.files[kPath] = "";
    EXPECT_TRUE(append(u"a", TextFormat::Utf8));
    EXPECT_EQ(bytes(),
              "\xEF\xBB\xBF"
              "a");
}

TEST_F(mTextUTFTest, AppendingDetectsTheFormatAndWritesNoMark) {
    files.files[kPath] =
        "\xFF\xFE"
        "a\0"s;
    EXPECT_TRUE(append(u"b", TextFormat::Detect));
    EXPECT_EQ(format, TextFormat::Utf16Le);
    EXPECT_EQ(bytes(),
              "\xFF\xFE"
              "a\0b\0"s);
    EXPECT_TRUE(append(u"", TextFormat::Detect));
    EXPECT_EQ(bytes(),
              "\xFF\xFE"
              "a\0b\0"s);
}

TEST_F(mTextUTFTest, AppendingInAGivenFormatIsNotGuessed) {
    files.files[kPath] =
        "\xFF\xFE"
        "a\0"s;
    EXPECT_TRUE(append(u"b", TextFormat::Ansi));
    EXPECT_EQ(bytes(),
              "\xFF\xFE"
              "a\0b"s);
    EXPECT_EQ(files.accesses, std::vector<std::string>{"append /text.ini"});
    files.files[kPath] = "a";
    EXPECT_TRUE(append(u"b", TextFormat::Ansi));
    EXPECT_EQ(bytes(), "ab") << "one byte is content";
}

TEST_F(mTextUTFTest, AppendingToUtf32IsRejected) {
    files.files[kPath] = "\xFF\xFE\x00\x00"s;
    EXPECT_FALSE(append(u"b", TextFormat::Detect));
    EXPECT_EQ(bytes(), "\xFF\xFE\x00\x00"s);
}

TEST_F(mTextUTFTest, AFileThatCannotBeWrittenIsUnchanged) {
    files.files[kPath] = "old";
    files.readOnly.insert(kPath);
    EXPECT_FALSE(write(u"new", TextFormat::Utf8));
    EXPECT_FALSE(append(u"new", TextFormat::Utf8));
    EXPECT_EQ(bytes(), "old");
    EXPECT_EQ(files.files.size(), 1U) << "a temporary file is left";
}

TEST_F(mTextUTFTest, AnsiWritesTheCharactersOfTheCodePage) {
    EXPECT_TRUE(write(u"€é中", TextFormat::Ansi));
    EXPECT_EQ(bytes(), "\x80\xE9?");
}

TEST_F(mTextUTFTest, AppendingToAMissingFileWithAnUnknownDefaultCreatesAnEmptyFile) {
    for (const auto defaultFormat : {TextFormat::Detect, static_cast<TextFormat>(6), static_cast<TextFormat>(-2)}) {
        files.files.clear();
        EXPECT_TRUE(append(u"a", TextFormat::Detect, defaultFormat));
        EXPECT_EQ(files.files.size(), 1U);
        EXPECT_EQ(bytes(), "");
    }
}

TEST_F(mTextUTFTest, AppendingToAFileOfUnknownFormatIsAFailure) {
    files.files[kPath] = "old";
    files.failing.insert(kPath);
    EXPECT_FALSE(append(u"a", TextFormat::Detect)) << "its format cannot be detected";
    files.failing.clear();
    files.sizes[kPath] = 0x80000000U;
    EXPECT_FALSE(append(u"a", TextFormat::Detect)) << "it is too large to look at";
    EXPECT_EQ(bytes(), "old");
    files.sizes[kPath] = 0x7FFFFFFFU;
    EXPECT_TRUE(append(u"a", TextFormat::Detect)) << "it is just small enough";
    EXPECT_EQ(bytes(), "olda");
}
