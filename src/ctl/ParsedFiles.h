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

// Bytes with the mark of UTF-16 are decoded as such, all others as UTF-8.
ParsedFiles parsed(WorkingCopyBytes bytes);

// Calls work(kind, file) for each list whose file is there, for two lists at a time. `work` must not change anything
// that the lists share.
using ListWork = std::function<void(ListKind, IniReader&)>;
void forEachList(ParsedFiles& files, const ListWork& work);
