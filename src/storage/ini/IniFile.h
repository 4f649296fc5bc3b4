// Keys of an INI file on disk: the file is read, changed and replaced as a whole.
#pragma once

#include <functional>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ini/IniEditor.h"

// Applies any number of changes with one reading and one writing. A file that begins with FF FE stays UTF-16, any
// other one is in the ANSI code page; a missing one is created. False when the file could not be read or written;
// then it is as it was.
bool editIniFile(std::u16string_view path, Files& files, CodePages& codePages,
                 const std::function<void(IniEditor&)>& change);

// One key. The texts end at their first NUL. A failure is silent.
void WriteIniValue(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                   std::u16string_view path, Files& files, CodePages& codePages);
