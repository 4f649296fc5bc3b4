#include "storage/lists/WorkingCopies.h"

#include "storage/files/SafeFile.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages) {
    TextFormat format = TextFormat::Utf8;
    mTextUTF(files, codePages).WriteTextFile(path, u" ", false, format, format, true, false);
}

FileRead readWorkingCopy(std::u16string_view path, Files& files) {
    return files.size(path).value_or(0) > kLargestTextFile ? FileRead::failed() : files.read(path);
}

std::string convertedWorkingCopy(std::string_view bytes) {
    const std::string_view mark = TextFormatBom(TextFormat::Utf8);
    if (bytes.starts_with(mark)) {
        bytes.remove_prefix(mark.size());
    }
    std::string converted(TextFormatBom(TextFormat::Utf16Le));
    appendBytes(converted, fromUtf8(bytes), ByteOrder::Little);
    return converted;
}

std::string unconvertedWorkingCopy(std::string_view bytes) {
    const std::string_view mark = TextFormatBom(TextFormat::Utf16Le);
    return bytes.starts_with(mark) ? toUtf8(unitsOf(bytes.substr(mark.size()), ByteOrder::Little)) : std::string(bytes);
}

std::optional<std::string> convertWorkingCopy(std::u16string_view path, Files& files) {
    const auto bytes = readWorkingCopy(path, files).bytes;
    if (!bytes) {
        return std::nullopt;
    }
    std::string converted = convertedWorkingCopy(*bytes);
    return replaceFile(files, path, converted) ? std::optional(std::move(converted)) : std::nullopt;
}
