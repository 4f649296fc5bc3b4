#include "storage/ini/IniFile.h"

#include <string>
#include <utility>

#include "storage/files/SafeFile.h"
#include "storage/ini/IniReader.h"
#include "storage/text/Utf16Bytes.h"
#include "storage/text/mTextUTF.h"

bool editIniFile(std::u16string_view path, Files& files, CodePages& codePages,
                 const std::function<void(IniEditor&)>& change) {
    const FileRead present = files.read(path);
    if (!present.bytes && !present.isMissing) {
        return false;
    }
    IniText old = decodeIni(present.bytes.value_or(std::string()), codePages);
    IniEditor edit(std::move(old.text));
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
                [&](IniEditor& edit) { edit.set(PtrToStrW(section), PtrToStrW(key), PtrToStrW(value)); });
}
