// File operations. Paths are absolute, UTF-16, in the system's own notation.
// Nothing throws; a failed operation says so in its result and shows nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class Files {
public:
    virtual ~Files() = default;

    // Anything by that name, whatever its attributes; folders too. True also when that cannot be told.
    virtual bool exists(std::u16string_view path) = 0;
    // Bytes; nullopt when there is no such regular file.
    virtual std::optional<std::uint64_t> size(std::u16string_view path) = 0;
    // The whole file; nullopt when it cannot be opened or read to its end. Folders cannot be read.
    virtual std::optional<std::string> read(std::u16string_view path) = 0;
    // As read, but from the device and not from the system's cache where the system can do that.
    virtual std::optional<std::string> readBack(std::u16string_view path) = 0;
    // Creates or truncates, writes all, flushes to the device. On failure the file may hold a part, and
    // behind it what it held before. The name of a new file is durable with the next rename in its folder, or
    // flushFolderOf it. Never follows a link at the path.
    virtual bool write(std::u16string_view path, std::string_view bytes) = 0;
    // The same, but when the bytes reach the device is left to the system: a power cut may leave any part of them.
    virtual bool writeUnflushed(std::u16string_view path, std::string_view bytes) = 0;
    // Creates the file when missing; writes at its end and flushes.
    virtual bool append(std::u16string_view path, std::string_view bytes) = 0;
    // Puts `from` in the place of `to` (which may exist) in one step, in the same folder, and makes it durable.
    virtual bool rename(std::u16string_view from, std::u16string_view to) = 0;
    // The same, durable with the next rename in the folder, or flushFolderOf it.
    virtual bool renameUnflushed(std::u16string_view from, std::u16string_view to) = 0;
    // Makes the names in the folder of this file or folder durable, where the system can do that.
    virtual void flushFolderOf(std::u16string_view path) = 0;
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
