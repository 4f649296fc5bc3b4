// Whole text files in six encodings, with byte-order marks. The receiver keeps its files in UTF-8, the working
// copies are UTF-16, and every copy between them passes through here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"

enum class TextFormat : std::int32_t { Detect = -1, Ansi = 0, Utf8, Utf16Le, Utf16Be, Utf32Le, Utf32Be };

// What can be read: a size in bytes that fits in 31 bits.
inline constexpr std::uint64_t kLargestTextFile = 0x7FFFFFFF;

struct DetectedFormat {
    TextFormat format = TextFormat::Ansi;
    std::size_t markLength = 0;  // bytes
};

// By the mark at the start of a file; looks at four bytes at most, missing ones count as 0. No mark is Ansi.
DetectedFormat DetectTextFormat(std::string_view fileStart);

// The mark's bytes; empty for Ansi and for a value that is none of the six formats.
std::string_view TextFormatBom(TextFormat format);

// The units before the first NUL; empty for a null pointer.
std::u16string PtrToStrW(const char16_t* text);
// The same of a text that is not NUL-terminated. A part of `text`, valid as long as it is.
std::u16string_view PtrToStrW(std::u16string_view text);

class mTextUTF {
public:
    mTextUTF(Files& files, CodePages& codePages) : files_(files), codePages_(codePages) {}

    // The text without its mark; empty on failure, for UTF-32, for a format that does not exist and for a file whose
    // size in bytes needs more than 31 bits (which is not read at all).
    // Detect becomes the format found. Any other format is forced: a mark of another format is then part of the text.
    // Utf16Le yields (bytes after the mark + 1) units: the text, then NULs. halveLength below undoes that.
    std::u16string ReadTextFile(std::u16string_view path, TextFormat& format);

    // Without `append` the file is replaced as a whole, in one step: a failure leaves the old one. With it the text
    // goes to the end, without a mark; a missing or empty file is written as without it, Detect becoming
    // defaultFormat, and in a file with content Detect becomes the format found.
    // halveLength: of an Ansi or Utf8 text only the first half is written (units, rounded half to even).
    // A defaultFormat that does not exist makes an empty file of it.
    // False on failure, for a format that does not exist, and when nothing of a text can be encoded (UTF-32 and a
    // half of no units among that); in the latter case a file not appended to is left with just its mark.
    bool WriteTextFile(std::u16string_view path, std::u16string_view text, bool append, TextFormat& format,
                       TextFormat defaultFormat, bool writeBom, bool halveLength);

private:
    std::u16string decode(std::string_view data, TextFormat format);
    // Appends the encoded text; false when the format cannot hold it or nothing of it is left to write.
    bool encode(std::string& bytes, std::u16string_view text, TextFormat format, bool halveLength);
    bool appendTo(std::u16string_view path, std::u16string_view text, TextFormat& format, bool halveLength);

    Files& files_;
    CodePages& codePages_;
};
