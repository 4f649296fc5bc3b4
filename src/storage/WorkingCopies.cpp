#include "storage/WorkingCopies.h"

#include "storage/mTextUTF.h"

void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages) {
    TextFormat format = TextFormat::Utf8;
    mTextUTF(files, codePages).WriteTextFile(path, u" ", false, format, format, true, false);
}

bool convertWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages) {
    const auto size = files.size(path);
    if (!size) {
        return false;
    }
    mTextUTF textFiles(files, codePages);
    TextFormat format = TextFormat::Utf8;
    const std::u16string text = textFiles.ReadTextFile(path, format);
    // No text of a file that holds more than a mark: it could not be read, and rewriting it would empty it.
    if (text.empty() && *size > TextFormatBom(TextFormat::Utf8).size()) {
        return false;
    }
    format = TextFormat::Utf16Le;
    return textFiles.WriteTextFile(path, text, false, format, format, true, false);
}
