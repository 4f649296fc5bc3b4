// Reads any bytes in any format, and reads back what was written.
#include <algorithm>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fuzz/Fuzz.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr const char16_t* kPath = u"/f";

std::u16string read(FakeFiles& files, TextFormat format) {
    FakeCodePages codePages;
    return mTextUTF(files, codePages).ReadTextFile(kPath, format);
}

bool write(FakeFiles& files, const std::u16string& text, TextFormat format, bool mark, bool halve) {
    FakeCodePages codePages;
    return mTextUTF(files, codePages).WriteTextFile(kPath, text, false, format, format, mark, halve);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    const auto format = static_cast<TextFormat>(data[0] % 8 - 1);
    const bool mark = (data[0] & 0x80) != 0;
    FakeFiles files;
    files.files[kPath] = bytesOf(data + 1, size - 1);
    const std::u16string any = read(files, format);
    promise(format != TextFormat::Utf32Le && format != TextFormat::Utf32Be ? true : any.empty(), "UTF-32 is refused");
    promise(any.size() <= size + 1, "a text is no longer than its file");

    // A text survives UTF-8 unchanged, except a byte-order mark at its start.
    const std::u16string text = fromUtf8(files.files[kPath]);
    if (text.empty() || text.front() == u'\uFEFF') {
        return 0;
    }
    promise(write(files, text, TextFormat::Utf8, mark, false), "UTF-8 is written");
    promise(read(files, TextFormat::Utf8) == text, "UTF-8 comes back");
    promise(write(files, text, TextFormat::Utf16Be, true, false), "UTF-16BE is written");
    promise(read(files, TextFormat::Detect) == text, "UTF-16BE is recognised and comes back");
    promise(write(files, text, TextFormat::Utf16Le, true, false), "UTF-16LE is written");
    const bool looksLikeUtf32 = text.front() == u'\0';
    const std::u16string padded = read(files, TextFormat::Utf16Le);
    if (looksLikeUtf32) {
        return 0;
    }
    promise(padded.size() == 2 * text.size() + 1 && padded.starts_with(text) &&
                std::all_of(padded.begin() + static_cast<std::ptrdiff_t>(text.size()), padded.end(),
                            [](char16_t c) { return c == u'\0'; }),
            "UTF-16LE comes back with its NULs");
    promise(write(files, padded, TextFormat::Utf8, false, true), "half is written");
    const std::u16string kept = text + std::u16string(text.size() % 2, u'\0');
    // A surrogate pair is never split: the half ends at or after the end of the text.
    promise(read(files, TextFormat::Utf8) == kept, "half of it is the text, and one NUL when its length is odd");
    return 0;
}
