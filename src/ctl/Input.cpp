#include "ctl/Input.h"

#include <optional>
#include <utility>

#include "ctl/Messages.h"
#include "ctl/Sources.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/text/Utf8.h"
#include "storage/text/mTextUTF.h"

Exit readInput(Services& services, std::u16string_view input, std::u16string& name, std::string& bytes) {
    const bool isStandard = input == u"-";
    name = isStandard ? u"standard input" : absolutePath(services.currentFolder, input);
    auto read = isStandard ? services.console.readAll() : readWorkingCopy(name, services.files).bytes;
    if (!read) {
        const bool isThere = isStandard || services.files.exists(name);
        return fileFault(services.console, name, isThere ? whyUnreadable(name, services.files) : u"no such file");
    }
    bytes = std::move(*read);
    return Exit::Done;
}

Exit readInputText(Services& services, std::u16string_view input, std::u16string& name, std::u16string& text) {
    std::string bytes;
    if (const Exit read = readInput(services, input, name, bytes); read != Exit::Done) {
        return read;
    }
    std::string_view content = bytes;
    const std::string_view mark = TextFormatBom(TextFormat::Utf8);
    if (content.starts_with(mark)) {
        content.remove_prefix(mark.size());
    }
    text = fromUtf8(content);
    return toUtf8(text) == content ? Exit::Done : fileFault(services.console, name, u"is not UTF-8");
}
