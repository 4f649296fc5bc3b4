// The two working copies: where they lie, and how they come to be what the loaders read.
#pragma once

#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"

// Absolute paths in the program folder.
struct WorkingCopies {
    std::u16string ListFilePath;
    std::u16string UserFilePath;
};

// A new one holds a single blank, in UTF-8 with its mark: EF BB BF 20. A failure is silent.
void createWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages);

// From the receiver's UTF-8 (never guessed, a mark is accepted) to UTF-16LE with its mark.
// False when the file is missing or cannot be read or written; then it is as it was.
bool convertWorkingCopy(std::u16string_view path, Files& files, CodePages& codePages);
