#include "storage/lists/WorkingCopies.h"

#include <utility>

#include "storage/files/SafeFile.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages) {
    TextFormat format = TextFormat::Utf8;
    mTextUTF(files, codePages).WriteTextFile(path, u" ", false, format, format, true, false);
}

std::optional<std::string> readWorkingCopy(std::u16string_view path, Files& files) {
    if (files.size(path).value_or(0) > kLargestTextFile) {
        return std::nullopt;
    }
    constexpr int kAttempts = 3;
    FileRead read;
    for (int attempt = 0; attempt < kAttempts && !read.bytes && !read.isMissing; ++attempt) {
        read = files.read(path);
    }
    return std::move(read.bytes);
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
    const auto bytes = readWorkingCopy(path, files);
    if (!bytes) {
        return std::nullopt;
    }
    std::string converted = convertedWorkingCopy(*bytes);
    return replaceFile(files, path, converted) ? std::optional(std::move(converted)) : std::nullopt;
}
