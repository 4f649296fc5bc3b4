#include "storage/text/mTextUTF.h"

#include <algorithm>
#include <optional>

#include "storage/files/SafeFile.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"

using namespace std::string_view_literals;

namespace {

bool isFormat(TextFormat format) { return format >= TextFormat::Ansi && format <= TextFormat::Utf32Be; }

// Half, ties to even: 11 gives 6 and 13 gives 6.
std::size_t half(std::size_t length) {
    const std::size_t down = length / 2;
    return length % 2 == 0 ? down : down + down % 2;
}

}  // namespace

DetectedFormat DetectTextFormat(std::string_view fileStart) {
    std::string start(fileStart.substr(0, 4));
    start.resize(4, '\0');
    // The order matters: FF FE 00 00 also begins with the mark of UTF-16.
    for (const TextFormat format :
         {TextFormat::Utf32Le, TextFormat::Utf32Be, TextFormat::Utf16Le, TextFormat::Utf16Be, TextFormat::Utf8}) {
        const std::string_view mark = TextFormatBom(format);
        if (start.starts_with(mark)) {
            return {format, mark.size()};
        }
    }
    return {};
}

std::string_view TextFormatBom(TextFormat format) {
    switch (format) {
        case TextFormat::Utf8:
            return "\xEF\xBB\xBF"sv;
        case TextFormat::Utf16Le:
            return "\xFF\xFE"sv;
        case TextFormat::Utf16Be:
            return "\xFE\xFF"sv;
        case TextFormat::Utf32Le:
            return "\xFF\xFE\x00\x00"sv;
        case TextFormat::Utf32Be:
            return "\x00\x00\xFE\xFF"sv;
        default:
            return {};
    }
}

std::u16string PtrToStrW(const char16_t* text) { return text == nullptr ? std::u16string() : std::u16string(text); }

std::u16string_view PtrToStrW(std::u16string_view text) { return text.substr(0, text.find(u'\0')); }

std::u16string mTextUTF::ReadTextFile(std::u16string_view path, TextFormat& format) {
    if (format != TextFormat::Detect && !isFormat(format)) {
        return {};
    }
    const auto size = files_.size(path);
    if (!size || *size > kLargestTextFile) {
        return {};
    }
    const auto bytes = files_.read(path).bytes;
    if (!bytes) {
        return {};
    }
    const DetectedFormat detected = DetectTextFormat(*bytes);
    if (format == TextFormat::Detect) {
        format = detected.format;
    }
    const std::size_t mark = format == detected.format ? std::min(detected.markLength, bytes->size()) : 0;
    return decode(std::string_view(*bytes).substr(mark), format);
}

std::u16string mTextUTF::decode(std::string_view data, TextFormat format) {
    switch (format) {
        case TextFormat::Ansi:
            return codePages_.decode(data);
        case TextFormat::Utf8:
            return fromUtf8(data);
        case TextFormat::Utf16Le: {
            std::u16string text(data.size() + 1, u'\0');
            unitsOf(data, ByteOrder::Little, text.data());
            if (data.size() % 2 != 0) {  // half a unit, without its high byte
                text[data.size() / 2] = static_cast<unsigned char>(data.back());
            }
            return text;
        }
        case TextFormat::Utf16Be:
            return unitsOf(data, ByteOrder::Big);
        default:
            return {};
    }
}

bool mTextUTF::WriteTextFile(std::u16string_view path, std::u16string_view text, bool append, TextFormat& format,
                             TextFormat defaultFormat, bool writeBom, bool halveLength) {
    if (!isFormat(format) && !(format == TextFormat::Detect && append)) {
        return false;
    }
    if (append && files_.size(path).value_or(0) > 0) {
        return appendTo(path, text, format, halveLength);
    }
    if (format == TextFormat::Detect) {
        format = defaultFormat;
    }
    std::string bytes;
    if (writeBom) {
        bytes = TextFormatBom(format);
    }
    const bool encoded = text.empty() || encode(bytes, text, format, halveLength);
    return replaceFile(files_, path, bytes) && encoded;
}

bool mTextUTF::appendTo(std::u16string_view path, std::u16string_view text, TextFormat& format, bool halveLength) {
    if (format == TextFormat::Detect) {
        const auto present = files_.size(path).value_or(0) > kLargestTextFile ? std::nullopt : files_.read(path).bytes;
        if (!present) {
            return false;
        }
        format = DetectTextFormat(*present).format;
    }
    std::string bytes;
    const bool encoded = text.empty() || encode(bytes, text, format, halveLength);
    return encoded && files_.append(path, bytes);
}

bool mTextUTF::encode(std::string& bytes, std::u16string_view text, TextFormat format, bool halveLength) {
    switch (format) {
        case TextFormat::Ansi:
        case TextFormat::Utf8: {
            const std::u16string_view part = halveLength ? text.substr(0, half(text.size())) : text;
            std::string encoded = format == TextFormat::Ansi ? codePages_.encode(part) : toUtf8(part);
            const bool any = !encoded.empty();
            if (bytes.empty()) {
                bytes = std::move(encoded);
            } else {
                bytes += encoded;
            }
            return any;
        }
        case TextFormat::Utf16Le:
            appendBytes(bytes, text, ByteOrder::Little);
            return true;
        case TextFormat::Utf16Be:
            appendBytes(bytes, text, ByteOrder::Big);
            return true;
        case TextFormat::Utf32Le:
        case TextFormat::Utf32Be:
            return false;
        default:  // only for a new file: it stays empty
            return true;
    }
}
