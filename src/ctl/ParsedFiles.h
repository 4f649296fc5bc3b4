// The list files of a source, parsed.
#pragma once

#include <functional>
#include <optional>

#include "storage/ini/IniReader.h"
#include "storage/lists/ListFileId.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ListKind.h"

struct ParsedFile {
    IniReader text;
    bool isWellFormed = true;  // false: the bytes are no UTF-8 and were repaired
};

// nullopt for a file that the source does not have.
using ParsedFiles = PerListFile<std::optional<ParsedFile>>;

// Bytes with the mark of UTF-16 are decoded as such, all others as UTF-8. The bytes of a file are freed before the next
// one is decoded.
ParsedFiles parsed(WorkingCopyBytes bytes);

// Parses both files and calls work(kind, file) for each list whose file is there, for several lists at the same time.
// The lists share no file object.
using ListWork = std::function<void(ListKind, IniReader&)>;
ParsedFiles parsedWith(const ListWork& work, WorkingCopyBytes bytes);
