// The list files of a source, parsed.
#pragma once

#include <optional>
#include <string>

#include "storage/ini/IniReader.h"
#include "storage/lists/ListFileId.h"
#include "storage/lists/WorkingCopies.h"

struct ParsedFile {
    IniReader text;
    bool isWellFormed = true;  // false: the bytes are no UTF-8 and were repaired
};

// nullopt for a file that the source does not have.
using ParsedFiles = PerListFile<std::optional<ParsedFile>>;

// Bytes with the mark of UTF-16 are decoded as such, all others as UTF-8. The bytes of a file are freed before the next
// one is decoded.
ParsedFiles parsed(WorkingCopyBytes bytes);
