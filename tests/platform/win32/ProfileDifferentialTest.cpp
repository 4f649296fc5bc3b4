// Compares the INI engine with the system's profile functions: the same random calls on the same random file must give
// the same reads and, up to blank lines and trailing blanks, the same file.
#include <windows.h>
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/Text.h"
#include "platform/win32/TemporaryFolder.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32CodePages.h"
#include "storage/ini/IniEditor.h"
#include "storage/ini/IniReader.h"
#include "storage/ini/IniSyntax.h"
#include "storage/text/Utf16Bytes.h"

namespace {

constexpr int kBufferUnits = 255;
constexpr unsigned kSequences = 1000;

class Generator {
public:
    explicit Generator(unsigned seed) : engine_(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(engine_); }
    bool chance(int percent) { return below(100) < percent; }

    std::u16string section() {
        static constexpr std::array<std::u16string_view, 7> kNames = {
            u"Total",         u"DRMSchedule0", u"drmschedule0",  u"AMSchedule1",
            u"FAVSchedule12", u"two words",    u"kvt update end"};
        return std::u16string(kNames[static_cast<std::size_t>(below(kNames.size()))]);
    }
    std::u16string key() {
        static constexpr std::array<std::u16string_view, 6> kNames = {u"Frequency", u"FREQUENCY", u"Programme",
                                                                      u"UserDef",   u"a key",     u"TYPE"};
        return std::u16string(kNames[static_cast<std::size_t>(below(kNames.size()))]);
    }
    std::u16string value() {
        static constexpr std::u16string_view kUnits = u"aB19 ,.:-=;[]'\"/\\#%äЖ中\u00A0";
        std::u16string text;
        const int length = chance(5) ? 250 + below(10) : below(14);
        for (int i = 0; i < length; ++i) {
            text += kUnits[static_cast<std::size_t>(below(kUnits.size()))];
        }
        return text;
    }
    std::u16string blanks() { return chance(70) ? u"" : chance(50) ? u" " : u"  "; }
    std::u16string line() {
        switch (below(8)) {
            case 0:
            case 1:
                return blanks() + u'[' + blanks() + section() + blanks() + u']' + blanks();
            case 2:
                return blanks();
            case 3:
                return blanks() + u"; a comment=1";
            default:
                return blanks() + key() + blanks() + u'=' + blanks() + value() + blanks();
        }
    }
    std::u16string file() {
        std::u16string text = chance(70) ? u" \r\n" : u"";
        const int lines = below(20);
        for (int i = 0; i < lines; ++i) {
            text += line();
            text += i + 1 < lines || chance(70) ? u"\r\n" : u"";
        }
        return text;
    }

private:
    std::mt19937 engine_;
};

std::u16string trimmed(std::u16string_view text) {
    const auto first = text.find_first_not_of(u" \t");
    return first == text.npos ? std::u16string()
                              : std::u16string(text.substr(first, text.find_last_not_of(u" \t") - first + 1));
}

// One entry per non-blank line, with trimmed parts.
std::vector<std::string> essence(std::u16string_view text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const IniLineEnd lineEnd = findLineEnd(text, start);
        const std::u16string_view whole = text.substr(start, lineEnd.end - start);
        const IniLine line = parseIniLine(whole);
        if (line.kind == IniLineKind::Section) {
            lines.push_back("[" + narrow(line.name) + "]");
        } else if (line.kind == IniLineKind::Key) {
            lines.push_back(narrow(line.name) + "=" + narrow(trimmed(line.value)));
        } else if (!trimmed(whole).empty()) {
            lines.push_back(narrow(trimmed(whole)));
        }
        start = lineEnd.next;
    }
    return lines;
}

std::string utf16File(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    appendBytes(bytes, text, ByteOrder::Little);
    return bytes;
}

class ProfileDifferentialTest : public testing::Test {
protected:
    std::u16string systemRead(const std::u16string& section, const std::u16string& key) const {
        std::array<wchar_t, kBufferUnits> buffer{};
        const DWORD length = GetPrivateProfileStringW(toWide(section).c_str(), toWide(key).c_str(), L"", buffer.data(),
                                                      kBufferUnits, folder_.file("system.ini").c_str());
        return fromWide({buffer.data(), length});
    }
    void systemWrite(const std::u16string& section, const std::u16string& key, const std::u16string& value) const {
        WritePrivateProfileStringW(toWide(section).c_str(), toWide(key).c_str(), toWide(value).c_str(),
                                   folder_.file("system.ini").c_str());
    }
    void systemRemove(const std::u16string& section) const {
        WritePrivateProfileStringW(toWide(section).c_str(), nullptr, nullptr, folder_.file("system.ini").c_str());
    }
    std::u16string systemFile() {
        WritePrivateProfileStringW(nullptr, nullptr, nullptr, folder_.file("system.ini").c_str());  // flushes the cache
        return decodeIni(folder_.read("system.ini"), codePages_).text;
    }
    // Writes a file with the mark FF FE or in the ANSI code page, in which characters of the text may be missing.
    std::u16string fitting(const std::u16string& text, bool ansi) {
        return ansi ? codePages_.decode(codePages_.encode(text)) : text;
    }
    void start(const std::u16string& text, bool ansi) {
        folder_.write("system.ini", ansi ? codePages_.encode(text) : utf16File(text));
        WritePrivateProfileStringW(nullptr, nullptr, nullptr, folder_.file("system.ini").c_str());  // drops the cache
    }

    TemporaryFolder folder_;
    Win32CodePages codePages_;
};

TEST_F(ProfileDifferentialTest, ReadsTheSameValues) {
    for (unsigned seed = 1; seed <= kSequences && !HasFailure(); ++seed) {
        Generator generator(seed);
        const bool ansi = generator.chance(30);
        const std::u16string text = fitting(generator.file(), ansi);
        start(text, ansi);
        IniReader profile(text);
        for (int i = 0; i < 12; ++i) {
            const std::u16string section = generator.section();
            const std::u16string key = generator.key();
            EXPECT_EQ(narrow(profile.get(section, key)), narrow(systemRead(section, key)))
                << "seed " << seed << " [" << narrow(section) << "] " << narrow(key) << "\n"
                << narrow(text);
        }
    }
}

TEST_F(ProfileDifferentialTest, WritesTheSameFile) {
    for (unsigned seed = 1; seed <= kSequences && !HasFailure(); ++seed) {
        Generator generator(seed);
        const bool ansi = generator.chance(30);
        const std::u16string text = fitting(generator.file(), ansi);
        start(text, ansi);
        IniEditor edit(text);
        std::string calls;
        for (int i = 1 + generator.below(10); i > 0; --i) {
            const std::u16string section = generator.section();
            if (generator.chance(10)) {
                edit.removeSection(section);
                systemRemove(section);
                calls += "remove [" + narrow(section) + "]\n";
            } else {
                const std::u16string key = generator.key();
                const std::u16string value = fitting(generator.value(), ansi);
                edit.set(section, key, value);
                systemWrite(section, key, value);
                calls += "[" + narrow(section) + "] " + narrow(key) + "=" + narrow(value) + "\n";
            }
        }
        EXPECT_EQ(essence(edit.compose()), essence(systemFile())) << "seed " << seed << "\n"
                                                                  << narrow(text) << "\n---\n"
                                                                  << calls;
    }
}

}  // namespace
