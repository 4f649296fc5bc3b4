#include "storage/lists/WorkingCopies.h"

#include "storage/files/SafeFile.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages) {
    TextFormat format = TextFormat::Utf8;
    mTextUTF(files, codePages).WriteTextFile(path, u" ", false, format, format, true, false);
}

std::optional<std::string> readWorkingCopy(std::u16string_view path, Files& files) {
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const auto size = files.size(path);
        if (size && *size > kLargestTextFile) {
            return std::nullopt;
        }
        auto bytes = size ? files.read(path) : std::nullopt;
        if (bytes) {
            return bytes;
        }
    }
    return std::nullopt;
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

std::optional<std::string> convertWorkingCopy(std::u16string_view path, Files& files) {
    const auto bytes = readWorkingCopy(path, files);
    if (!bytes) {
        return std::nullopt;
    }
    std::string converted = convertedWorkingCopy(*bytes);
    return replaceFile(files, path, converted) ? std::optional(std::move(converted)) : std::nullopt;
}
