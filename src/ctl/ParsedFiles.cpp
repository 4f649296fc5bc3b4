#include "ctl/ParsedFiles.h"

#include <string_view>
#include <utility>

#include "storage/text/UnitFinder.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

namespace {

// A text without U+FFFD was not repaired, which spares the comparison for nearly all files.
bool isRepaired(std::u16string_view text, std::string_view bytes) {
    const auto isReplacement = [](char16_t unit) { return unit == 0xFFFD; };
    return findUnit(text, 0, isReplacement) < text.size() && toUtf8(text) != bytes;
}

ParsedFile parsed(std::string bytes) {
    std::string_view content = bytes;
    if (const std::string_view mark = TextFormatBom(TextFormat::Utf16Le); content.starts_with(mark)) {
        return {IniReader(unitsOf(content.substr(mark.size()), ByteOrder::Little))};
    }
    if (const std::string_view mark = TextFormatBom(TextFormat::Utf8); content.starts_with(mark)) {
        content.remove_prefix(mark.size());
    }
    std::u16string text = fromUtf8(content);
    const bool isWellFormed = !isRepaired(text, content);
    bytes = {};
    return {IniReader(std::move(text)), isWellFormed};
}

}  // namespace

ParsedFiles parsed(WorkingCopyBytes bytes) {
    ParsedFiles files;
    for (const ListFileId file : kListFiles) {
        if (bytes[file]) {
            files[file] = parsed(std::move(*bytes[file]));
        }
    }
    return files;
}
