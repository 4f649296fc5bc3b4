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

// The whole file, tried again when it fails: the lists shown are what the next save writes over it.
// nullopt when there is no such file, when it cannot be read or when its size in bytes needs more than 31 bits.
std::optional<std::string> readWorkingCopy(std::u16string_view path, Files& files);

// From the receiver's UTF-8 (never guessed, a mark is accepted) to UTF-16LE with its mark.
std::string convertedWorkingCopy(std::string_view bytes);

// Back to UTF-8, as backups and the receiver have it; bytes without the mark of UTF-16LE stay as they are.
std::string unconvertedWorkingCopy(std::string_view bytes);

// The same of the file itself. Returns what the file holds then; nullopt when it is missing or cannot be read or
// written, and then it is as it was.
std::optional<std::string> convertWorkingCopy(std::u16string_view path, Files& files);
