#include "storage/IniFile.h"

#include <string>
#include <utility>

#include "storage/Profile.h"
#include "storage/SafeFile.h"
#include "storage/Utf16Bytes.h"
#include "storage/mTextUTF.h"

bool editIniFile(std::u16string_view path, Files& files, CodePages& codePages,
                 const std::function<void(ProfileEdit&)>& change) {
    const auto present = files.read(path);
    if (!present && !isMissing(files, path)) {
        return false;
    }
    ProfileText old = decodeProfile(present ? *present : std::string(), codePages);
    ProfileEdit edit(std::move(old.text));
    change(edit);
    const std::u16string text = edit.compose();
    if (!old.isUtf16) {
        return replaceFile(files, path, codePages.encode(text));
    }
    std::string bytes(TextFormatBom(TextFormat::Utf16Le));
    appendBytes(bytes, text, ByteOrder::Little);
    return replaceFile(files, path, bytes);
}

void WriteIniValue(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                   std::u16string_view path, Files& files, CodePages& codePages) {
    editIniFile(path, files, codePages,
                [&](ProfileEdit& edit) { edit.set(PtrToStrW(section), PtrToStrW(key), PtrToStrW(value)); });
}
