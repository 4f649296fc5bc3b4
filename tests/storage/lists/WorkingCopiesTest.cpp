#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string_view>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/text/mTextUTF.h"

using namespace std::string_literals;

namespace {

class WorkingCopiesTest : public testing::Test {
protected:
    bool convert(std::string bytes) {
        files.files[kPath] = std::move(bytes);
        return convertWorkingCopy(kPath, files).has_value();
    }
    static constexpr auto kPath = u"/k7/List.ini";
    FakeFiles files;
    FakeCodePages codePages;
};

}  // namespace

TEST_F(WorkingCopiesTest, ANewWorkingCopyContainsOneBlank) {
    createWorkingCopy(kPath, files, codePages);
    EXPECT_EQ(files.files[kPath], "\xEF\xBB\xBF\x20");
    EXPECT_TRUE(convertWorkingCopy(kPath, files));
    EXPECT_EQ(files.files[kPath], "\xFF\xFE\x20\0"s);
}

TEST_F(WorkingCopiesTest, Utf8IsConvertedWithAndWithoutMark) {
    EXPECT_TRUE(convert("\xEF\xBB\xBF\xE4\xB8\xAD"));
    EXPECT_EQ(files.files[kPath], "\xFF\xFE\x2D\x4E"s);
    EXPECT_TRUE(convert("a\xC3\xA9\0b"s));
    EXPECT_EQ(files.files[kPath],
              "\xFF\xFE"
              "a\0\xE9\0\0\0b\0"s);
}

TEST_F(WorkingCopiesTest, TheEncodingIsNotGuessed) {
    EXPECT_TRUE(
        convert("\xFF\xFE"
                "a\0"s));
    EXPECT_EQ(files.files[kPath],
              "\xFF\xFE\xFD\xFF\xFD\xFF"
              "a\0\0\0"s);
}

TEST_F(WorkingCopiesTest, TheTextLayerConvertsToTheSameBytes) {
    static constexpr std::array<std::string_view, 12> kPieces = {
        "\xEF\xBB\xBF", "\xFF\xFE",     "\xFE\xFF",         std::string_view("\0", 1),
        "\xE4\xB8",     "\xE4\xB8\xAD", "\xF0\x9F\x93\xBB", "\xED\xA0\x80",
        "\x80",         "\r\n",         "[Total]",          "x"};
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> piece(0, kPieces.size() - 1);
    mTextUTF texts(files, codePages);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes;
        for (std::size_t left = piece(random); left > 0; --left) {
            bytes += kPieces[piece(random)];
        }
        files.files[kPath] = bytes;
        TextFormat format = TextFormat::Utf8;
        const std::u16string text = texts.ReadTextFile(kPath, format);
        format = TextFormat::Utf16Le;
        ASSERT_TRUE(texts.WriteTextFile(kPath, text, false, format, format, true, false));
        ASSERT_EQ(files.files[kPath], convertedWorkingCopy(bytes)) << testing::PrintToString(bytes);
    }
}

TEST_F(WorkingCopiesTest, AnEmptyFileBecomesAnEmptyText) {
    EXPECT_TRUE(convert(""));
    EXPECT_EQ(files.files[kPath], "\xFF\xFE");
}

TEST_F(WorkingCopiesTest, AMissingFileStaysMissing) {
    EXPECT_FALSE(convertWorkingCopy(kPath, files));
    EXPECT_TRUE(files.files.empty());
}

TEST_F(WorkingCopiesTest, AFailureKeepsTheFile) {
    files.failing = {kPath};
    EXPECT_FALSE(convert("abc"));
    EXPECT_EQ(files.files[kPath], "abc") << "could not be read";
    files.failing = {u"/k7/LIST.K7N"};
    EXPECT_FALSE(convert("abc"));
    EXPECT_EQ(files.files[kPath], "abc") << "could not be written";
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(WorkingCopiesTest, AFileOfMoreThan31BitsIsNotRead) {
    files.sizes[kPath] = 0x80000000U;
    const FileRead read = readWorkingCopy(kPath, files);
    EXPECT_EQ(read.bytes, std::nullopt);
    EXPECT_FALSE(read.isMissing);
    EXPECT_TRUE(files.accesses.empty());
}

TEST_F(WorkingCopiesTest, AFileOf31BitsIsRead) {
    files.files[kPath] = "x";
    files.sizes[kPath] = 0x7FFFFFFFU;
    EXPECT_EQ(readWorkingCopy(kPath, files).bytes, "x");
}

TEST_F(WorkingCopiesTest, AConversionIsReversible) {
    for (const std::string bytes : {"", "abc", "[A]\r\nx=\xE4\xB8\xAD\r\n"}) {
        EXPECT_EQ(unconvertedWorkingCopy(convertedWorkingCopy(bytes)), bytes);
        EXPECT_EQ(unconvertedWorkingCopy(bytes), bytes) << "nothing to undo";
    }
}

TEST_F(WorkingCopiesTest, AFailedReadIsNotAMissingFile) {
    EXPECT_TRUE(readWorkingCopy(kPath, files).isMissing);
    files.files[kPath] = "x";
    files.failing = {kPath};
    const FileRead read = readWorkingCopy(kPath, files);
    EXPECT_EQ(read.bytes, std::nullopt);
    EXPECT_FALSE(read.isMissing);
}
