// The two working copies: their paths, and their conversion to and from the encoding of the loaders.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/lists/ListFileId.h"

// Absolute paths in the program folder.
struct WorkingCopies {
    std::u16string ListFilePath;
    std::u16string UserFilePath;

    const std::u16string& operator[](ListFileId file) const {
        return file == ListFileId::List ? ListFilePath : UserFilePath;
    }
};

// The content of both files; nullopt: unknown.
using WorkingCopyBytes = PerListFile<std::optional<std::string>>;

// The content of a new working copy: a byte-order mark and one blank.
inline constexpr std::string_view kNewWorkingCopy = "\xEF\xBB\xBF ";
void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages);

// Reads the whole file. A size over 31 bits is a failure.
FileRead readWorkingCopy(std::u16string_view path, Files& files);

// Converts UTF-8 (not detected; a byte-order mark is accepted) to UTF-16LE with its mark.
std::string convertedWorkingCopy(std::string_view bytes);

// Converts back to UTF-8, for backups and the receiver; bytes without the mark of UTF-16LE are unchanged.
std::string unconvertedWorkingCopy(std::string_view bytes);

// Converts the file itself. Returns its new content; nullopt, and the file is unchanged, if it is missing or cannot be
// read or written.
std::optional<std::string> convertWorkingCopy(std::u16string_view path, Files& files);
