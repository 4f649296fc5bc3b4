// File operations. Paths are absolute, UTF-16, in the system's own notation.
// Nothing throws; a failed operation says so in its result and shows nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The result of reading a file.
struct FileRead {
    static FileRead missing() { return {std::nullopt, true}; }
    static FileRead failed() { return {}; }

    std::optional<std::string> bytes;  // the whole file
    bool isMissing = false;            // there is no such file; false without bytes: the read failed
};

// When a change reaches the device: before the call returns, or whenever the system chooses.
enum class Flush { Now, Later };

class Files {
public:
    virtual ~Files() = default;

    // Anything by that name, whatever its attributes; folders too. Also true if the check itself fails.
    virtual bool exists(std::u16string_view path) = 0;
    // Bytes; nullopt when there is no such regular file.
    virtual std::optional<std::uint64_t> size(std::u16string_view path) = 0;
    // Missing means that nothing has the name. A folder, a link that leads nowhere, a device that does not answer and a
    // file that cannot be read to its end are failures.
    virtual FileRead read(std::u16string_view path) = 0;
    // As read, but from the device and not from the system's cache where the system can do that.
    virtual FileRead readBack(std::u16string_view path) = 0;
    // Creates or truncates, writes all. On failure the file may start with a part of the new bytes, followed by the old
    // tail. With Flush::Later a power cut may leave any part of the bytes. The name of a new file is durable after the
    // next rename with Flush::Now in its folder, or flushFolderOf it. Never follows a link at the path.
    virtual bool write(std::u16string_view path, std::string_view bytes, Flush flush) = 0;
    // Creates the file when missing; writes at its end and flushes.
    virtual bool append(std::u16string_view path, std::string_view bytes) = 0;
    // Puts `from` in the place of `to` (which may exist) in one step, in the same folder. With Flush::Now false may
    // also mean that the new name is there but could not be made durable. With Flush::Later it is durable after the
    // next rename with Flush::Now in the folder, or flushFolderOf it.
    virtual bool rename(std::u16string_view from, std::u16string_view to, Flush flush) = 0;
    // Makes the names in the folder of this file or folder durable. True also where the system has no such notion;
    // false when the device refuses.
    virtual bool flushFolderOf(std::u16string_view path) = 0;
    // Files only, links themselves; durable as a rename is.
    virtual bool remove(std::u16string_view path) = 0;
    // Normal attributes: writable, not hidden, not system.
    // A link is left as it is and gives false.
    virtual bool clearAttributes(std::u16string_view path) = 0;

    // Paths of folders come without a trailing separator.
    // True when a folder is there afterwards, new or not; a link to one is not. The folder above it must exist.
    // A new name is durable as that of a new file.
    virtual bool createFolder(std::u16string_view path) = 0;
    // Empty folders only.
    virtual bool removeFolder(std::u16string_view path) = 0;
    // The names of everything in a folder, in the order of their UTF-16 units; empty when it cannot be read. Names
    // that have no UTF-16 form are left out.
    virtual std::vector<std::u16string> list(std::u16string_view path) = 0;
    // Bytes that files of this user can still take on the folder's volume; nullopt when that cannot be told.
    virtual std::optional<std::uint64_t> freeSpace(std::u16string_view folder) = 0;
};
