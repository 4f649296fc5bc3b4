// Changes keys of an INI file on disk; the file is replaced as a whole.
#pragma once

#include <functional>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ini/IniEditor.h"

// Applies all changes with one read and one write. A file that begins with FF FE stays UTF-16, any other is in the ANSI
// code page; a missing file is created. False if the file could not be read or written; it is then unchanged.
bool editIniFile(std::u16string_view path, Files& files, CodePages& codePages,
                 const std::function<void(IniEditor&)>& change);

// Sets one key; the texts end at their first NUL. A failure is silent. An entry point without a caller here.
void WriteIniValue(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                   std::u16string_view path, Files& files, CodePages& codePages);
