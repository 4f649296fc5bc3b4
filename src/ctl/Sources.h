// What a command reads: the working copies, a folder, one of the two files, the receiver or a backup.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Lists.h"
#include "ctl/Services.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ListKind.h"

inline constexpr std::u16string_view kNoReceiver = u"no disk is the receiver's; connect it and try again";

struct SourceFiles {
    WorkingCopyBytes bytes;  // a file that the source does not have has none
    std::u16string listPath;
    std::u16string userPath;

    // Whether the source has the file that holds the list.
    bool has(ListKind kind) const { return (kind == ListKind::Favourite ? bytes.user : bytes.list).has_value(); }
};

// An empty text: the working copies. On failure a message has been written and `fault` says how to end.
std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Exit& fault);
// The same; appends the records to `lists`.
std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Lists& lists, Exit& fault);

// In the system's notation. currentFolder ends with its separator.
std::u16string absolutePath(std::u16string_view currentFolder, std::u16string_view path);
// With one separator at its end.
std::u16string folderPath(std::u16string path, char16_t separator);
