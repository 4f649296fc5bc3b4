#include "ctl/ParsedFiles.h"

#include <future>
#include <string>
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

std::optional<ParsedFile> parsedIfThere(std::optional<std::string>& bytes) {
    return bytes ? std::optional(parsed(std::move(*bytes))) : std::nullopt;
}

}  // namespace

ParsedFiles parsed(WorkingCopyBytes bytes) {
    ParsedFiles files;
    for (const ListFileId file : kListFiles) {
        files[file] = parsedIfThere(bytes[file]);
    }
    return files;
}

ParsedFiles parsedWith(const ListWork& work, WorkingCopyBytes bytes) {
    ParsedFiles files;
    auto favourites = std::async([&] {
        files.user = parsedIfThere(bytes.user);
        if (files.user) {
            work(ListKind::Favourite, files.user->text);
        }
    });
    files.list = parsedIfThere(bytes.list);
    if (files.list) {
        // The same text with an index of its own.
        auto others = std::async([&work, file = files.list->text]() mutable {
            work(ListKind::Am, file);
            work(ListKind::Fm, file);
        });
        work(ListKind::Drm, files.list->text);
        others.get();
    }
    favourites.get();
    return files;
}
