// The system's conversions against the reference of the tests.
#include <windows.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "fakes/FakeCodePages.h"
#include "fakes/Text.h"
#include "platform/win32/Win32CodePages.h"

namespace {

std::string hex(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        text += "0123456789ABCDEF"[static_cast<unsigned char>(byte) & 0xF];
    }
    return text;
}

std::string units(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit >> 8);
        bytes += static_cast<char>(unit & 0xFF);
    }
    return hex(bytes);
}

// Bytes that often begin or continue a sequence, whole or broken.
std::string randomUtf8(std::mt19937& random) {
    static constexpr std::string_view kParts[] = {"a",
                                                  "\r\n",
                                                  "\xC3\xA4",
                                                  "\xE4\xB8\xAD",
                                                  "\xF0\x9F\x93\xBB",
                                                  "\xEF\xBB\xBF",
                                                  "\xC0",
                                                  "\xC3",
                                                  "\xE0\x80",
                                                  "\xE4\xB8",
                                                  "\xED\xA0\x80",
                                                  "\xF0\x9F",
                                                  "\xF4\x90\x80\x80",
                                                  "\xFF",
                                                  "\x80",
                                                  std::string_view("\0", 1)};
    std::uniform_int_distribution<std::size_t> part(0, std::size(kParts) - 1);
    std::uniform_int_distribution<int> count(0, 12);
    std::string bytes;
    for (int i = count(random); i > 0; --i) {
        bytes += kParts[part(random)];
    }
    return bytes;
}

TEST(Win32CodePages, DecodesUtf8AsTheReference) {
    std::mt19937 random(1);
    FakeCodePages reference;
    Win32CodePages codePages;
    for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
        const std::string bytes = randomUtf8(random);
        EXPECT_EQ(units(reference.decode(CodePage::Utf8, bytes)), units(codePages.decode(CodePage::Utf8, bytes)))
            << hex(bytes);
    }
}

TEST(Win32CodePages, EncodesUtf8AsTheReference) {
    std::mt19937 random(2);
    std::uniform_int_distribution<int> unit(0xD780, 0xE080);  // surrogates and their neighbours
    FakeCodePages reference;
    Win32CodePages codePages;
    for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
        std::u16string text = u"x";
        for (int k = i % 9; k > 0; --k) {
            text += static_cast<char16_t>(unit(random));
        }
        EXPECT_EQ(hex(reference.encode(CodePage::Utf8, text)), hex(codePages.encode(CodePage::Utf8, text)))
            << units(text);
    }
}

TEST(Win32CodePages, AnsiIsTheCodePageOfTheSystemsLanguage) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "the system's code page is " << GetACP();
    }
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    FakeCodePages reference;
    Win32CodePages codePages;
    const std::u16string text = codePages.decode(CodePage::Ansi, all);
    EXPECT_EQ(units(reference.decode(CodePage::Ansi, all)), units(text));
    EXPECT_EQ(hex(all), hex(codePages.encode(CodePage::Ansi, text)));
    // No look-alikes: a character that the page lacks is a question mark.
    EXPECT_EQ("?? ?", codePages.encode(CodePage::Ansi, u"\u4E2D\u2215 \u0100"));
}

}  // namespace
