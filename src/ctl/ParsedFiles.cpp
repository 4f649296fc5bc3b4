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

}  // namespace

ParsedFiles parsed(WorkingCopyBytes bytes) {
    const auto parsedIfThere = [&bytes](ListFileId file) {
        return bytes[file] ? std::optional(parsed(std::move(*bytes[file]))) : std::nullopt;
    };
    auto user = std::async(parsedIfThere, ListFileId::User);
    auto list = parsedIfThere(ListFileId::List);
    return {std::move(list), user.get()};
}

void forEachList(ParsedFiles& files, const ListWork& work) {
    // Both readers have the same text, and each its own index.
    std::optional<IniReader> others = files.list ? std::optional(files.list->text) : std::nullopt;
    const auto shortLists = std::async([&] {
        if (others) {
            work(ListKind::Am, *others);
            work(ListKind::Fm, *others);
        }
    });
    if (files.list) {
        work(ListKind::Drm, files.list->text);
    }
    if (files.user) {
        work(ListKind::Favourite, files.user->text);
    }
}
