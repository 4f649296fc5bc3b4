// Compares the program's UTF-8 with the system's conversions, and the system's ANSI code page with the fake one.
#include <windows.h>
#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

#include "fakes/FakeCodePages.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32CodePages.h"
#include "storage/text/Utf8.h"

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

// Bytes that often start or continue a sequence, complete or broken.
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

std::u16string systemRepairs(std::string_view bytes) {
    const int count = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), count, text.data(), count)));
    return fromWide(text);
}

// nullopt if the system rejects the bytes as ill-formed.
std::optional<std::u16string> systemDecodes(std::string_view bytes) {
    const int count = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int size = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), count, text.data(), count);
    text.resize(static_cast<std::size_t>(size));
    return size == 0 && count > 0 ? std::nullopt : std::optional(fromWide(text));
}

std::string systemEncodes(std::u16string_view text) {
    const std::wstring wide = toWide(text);
    const int count = static_cast<int>(wide.size());
    std::string bytes(wide.size() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), count, bytes.data(), count * 3, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

TEST(CodePagesTest, Utf8IsDecodedAsByTheSystem) {
    std::mt19937 random(1);
    int wellFormed = 0;
    for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
        // Wine takes the whole rest of a text for one ill-formed character if the lead byte announces more bytes.
        const std::string bytes = randomUtf8(random) + "end";
        const std::u16string text = fromUtf8(bytes);
        const std::optional<std::u16string> system = systemDecodes(bytes);
        wellFormed += system ? 1 : 0;
        EXPECT_EQ(units(text), units(systemRepairs(bytes))) << hex(bytes);
        EXPECT_EQ(system.has_value(), toUtf8(text) == bytes) << hex(bytes);
        EXPECT_EQ(units(systemDecodes(toUtf8(text)).value_or(u"none")), units(text)) << hex(bytes);
    }
    EXPECT_GT(wellFormed, 1000);
}

TEST(CodePagesTest, Utf8IsEncodedAsByTheSystem) {
    std::mt19937 random(2);
    std::uniform_int_distribution<int> unit(0xD780, 0xE080);  // surrogates and their neighbours
    for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
        std::u16string text = u"x";
        for (int k = i % 9; k > 0; --k) {
            text += static_cast<char16_t>(unit(random));
        }
        EXPECT_EQ(hex(toUtf8(text)), hex(systemEncodes(text))) << units(text);
    }
}

TEST(CodePagesTest, Win32CodePagesAnsiIsTheCodePageOfTheSystemsLanguage) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "the system's code page is " << GetACP();
    }
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    FakeCodePages reference;
    Win32CodePages codePages;
    const std::u16string text = codePages.decode(all);
    EXPECT_EQ(units(reference.decode(all)), units(text));
    EXPECT_EQ(hex(all), hex(codePages.encode(text)));
    // A character that is not in the code page is replaced by its best fit, if there is one.
    EXPECT_EQ("?/ AOa", codePages.encode(u"\u4E2D\u2215 \u0100\u03A9\u0101"));
}

}  // namespace
