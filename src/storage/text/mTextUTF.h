// Reads and writes whole text files in six encodings, with byte-order marks. The receiver keeps its files in UTF-8, the
// working copies are UTF-16 during a run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"

enum class TextFormat : std::int32_t { Detect = -1, Ansi = 0, Utf8, Utf16Le, Utf16Be, Utf32Le, Utf32Be };

// Files of a larger size are not read: the size must fit in 31 bits.
inline constexpr std::uint64_t kLargestTextFile = 0x7FFFFFFF;

struct DetectedFormat {
    TextFormat format = TextFormat::Ansi;
    std::size_t markLength = 0;  // bytes
};

// By the mark at the start of a file. Looks at four bytes; missing ones count as 0. Without a mark the result is Ansi.
DetectedFormat DetectTextFormat(std::string_view fileStart);

// The mark's bytes; empty for Ansi and for a value that is none of the six formats.
std::string_view TextFormatBom(TextFormat format);

// The units before the first NUL; empty for a null pointer.
std::u16string PtrToStrW(const char16_t* text);
// The same for a text that is not NUL-terminated; a view into `text`.
std::u16string_view PtrToStrW(std::u16string_view text);

class mTextUTF {
public:
    mTextUTF(Files& files, CodePages& codePages) : files_(files), codePages_(codePages) {}

    // The text without its mark; empty on failure, for UTF-32, for an unknown format and for a file larger than
    // kLargestTextFile.
    // Detect becomes the format found. Any other format is forced: a mark of another format is then part of the text.
    // Utf16Le yields the text followed by NULs, (bytes after the mark + 1) units in all; halveLength below undoes that.
    // An entry point without a caller here: the working copies are decoded from bytes already read.
    std::u16string ReadTextFile(std::u16string_view path, TextFormat& format);

    // Without `append` the file is replaced in one step; on failure the old file stays. With `append` the text is added
    // at the end, without a mark, and Detect becomes the format found; a missing or empty file is written as without
    // `append`, and Detect becomes defaultFormat.
    // halveLength: writes only the first half of an Ansi or Utf8 text (in units, rounded to even).
    // An unknown defaultFormat creates an empty file.
    // False on failure, for an unknown format, and if nothing of a text can be encoded (UTF-32, a half of no units); in
    // the last case a file that is replaced consists of just its mark.
    bool WriteTextFile(std::u16string_view path, std::u16string_view text, bool append, TextFormat& format,
                       TextFormat defaultFormat, bool writeBom, bool halveLength);

private:
    std::u16string decode(std::string_view data, TextFormat format);
    // Appends the encoded text; false if the format cannot encode it or nothing is left to write.
    bool encode(std::string& bytes, std::u16string_view text, TextFormat format, bool halveLength);
    bool appendTo(std::u16string_view path, std::u16string_view text, TextFormat& format, bool halveLength);

    Files& files_;
    CodePages& codePages_;
};
