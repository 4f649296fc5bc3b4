// Opens the source of a command: working copies, folder, file, receiver or backup.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Lists.h"
#include "ctl/Services.h"
#include "storage/lists/ListFile.h"
#include "storage/lists/WorkingCopies.h"

inline constexpr std::u16string_view kReceiver = u"receiver";
inline constexpr std::u16string_view kBackupPrefix = u"backup:";
inline constexpr std::u16string_view kNoReceiver = u"no disk is the receiver's; connect it and try again";

struct SourceFiles {
    WorkingCopyBytes bytes;             // nullopt for a file that the source does not have
    PerListFile<std::u16string> paths;  // empty for a file that the source does not have

    bool has(ListFileId file) const { return !paths[file].empty(); }
    // True if the source has the file with this list.
    bool has(ListKind kind) const { return has(ListFile::fileOf(kind)); }
    bool isEmpty() const { return !has(ListFileId::List) && !has(ListFileId::User); }
};

// Empty: the working copies. On failure a message was written and `fault` is the exit code.
std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Exit& fault);
// The same; moves the bytes into `lists`.
std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Lists& lists, Exit& fault);

// The message for a file that exists but could not be read.
std::u16string_view whyUnreadable(std::u16string_view path, Files& files);

// In the system's notation. currentFolder ends with its separator.
std::u16string absolutePath(std::u16string_view currentFolder, std::u16string_view path);
// Ensures one trailing separator.
std::u16string folderPath(std::u16string path, char16_t separator);
