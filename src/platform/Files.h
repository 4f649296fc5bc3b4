// File operations. Paths are absolute, UTF-16, in the system's notation.
// Nothing throws or shows a message; a failure is reported in the result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The result of reading a file.
struct FileRead {
    static FileRead whole(std::string bytes) { return {std::move(bytes), false, {}}; }
    static FileRead missing() { return {std::nullopt, true, {}}; }
    static FileRead failed(std::string part = {}) { return {std::nullopt, false, std::move(part)}; }

    std::optional<std::string> bytes;  // the whole file, or as much as was asked for
    bool isMissing = false;            // the file does not exist; if false and there are no bytes, the read failed
    std::string part;                  // of a failed read: what came before the failure, or less
};

// The content of a file in memory for UTF-16 units, so that UTF-16 need not be copied to become a text.
struct FileUnits {
    // The memory is not initialised.
    explicit FileUnits(std::size_t size)
        : units(std::make_shared_for_overwrite<char16_t[]>(size / sizeof(char16_t) + 1)), byteCount(size) {}

    char* data() { return reinterpret_cast<char*>(units.get()); }
    std::string_view bytes() const { return {reinterpret_cast<const char*>(units.get()), byteCount}; }

    std::shared_ptr<char16_t[]> units;  // has room for one more byte
    std::size_t byteCount;
};

// When a change reaches the device: before the call returns, or when the system chooses.
enum class Flush { Now, Later };

class Files {
public:
    virtual ~Files() = default;

    // True for anything with that name, folders and links included. Also true if the check itself fails.
    virtual bool exists(std::u16string_view path) = 0;
    // In bytes; nullopt if the path is not a regular file.
    virtual std::optional<std::uint64_t> size(std::u16string_view path) = 0;
    // isMissing only if nothing has that name. A folder, a dangling link, a device that does not answer and a file that
    // cannot be read to its end are failures.
    virtual FileRead read(std::u16string_view path) = 0;
    // As read, but at most that many bytes from the start of the file; no more of it is read.
    virtual FileRead readStart(std::u16string_view path, std::size_t mostBytes) = 0;
    // The bytes that read gives; nullopt if there are none or the file is larger than mostBytes.
    virtual std::optional<FileUnits> readUnits(std::u16string_view path, std::size_t mostBytes) {
        const auto expected = size(path);
        const auto bytes = expected && *expected <= mostBytes ? read(path).bytes : std::nullopt;
        if (!bytes || bytes->size() > mostBytes) {
            return std::nullopt;
        }
        FileUnits content(bytes->size());
        bytes->copy(content.data(), bytes->size());
        return content;
    }
    // As read, but from the device instead of the system's cache, if the system supports that.
    virtual FileRead readBack(std::u16string_view path) = 0;
    // Creates or truncates the file, then writes all bytes. On failure the file may start with part of the new bytes,
    // followed by the old tail. With Flush::Later a power cut may leave any part of the bytes. The name of a new file
    // becomes durable with the next rename with Flush::Now in its folder, or with flushFolderOf. Never follows a link
    // at the path.
    virtual bool write(std::u16string_view path, std::string_view bytes, Flush flush) = 0;
    // True if a file with this name cannot be created because its folder or the disk has no room for the name. False if
    // the name exists, if it fits, or if another fault prevents the file. Leaves no file.
    virtual bool lacksRoomForName(std::u16string_view path) = 0;
    // Writes at the end of the file, creating it if missing, and flushes. The name of a new file becomes durable as
    // with write.
    virtual bool append(std::u16string_view path, std::string_view bytes) = 0;
    // Renames atomically within a folder, replacing `to` if it exists. With Flush::Now false may also mean that the new
    // name exists but could not be made durable. With Flush::Later it becomes durable with the next rename with
    // Flush::Now in the folder, or with flushFolderOf.
    virtual bool rename(std::u16string_view from, std::u16string_view to, Flush flush) = 0;
    // Makes the names in the folder that contains this path durable. True if the system has no such operation; false if
    // the device fails.
    virtual bool flushFolderOf(std::u16string_view path) = 0;
    // Files and links, not folders. Durable on return.
    virtual bool remove(std::u16string_view path) = 0;
    // Makes the file writable, not hidden and not system. A link is not changed and gives false.
    virtual bool clearAttributes(std::u16string_view path) = 0;

    // Paths of folders have no trailing separator.
    // True if the folder exists afterwards, created or not; a link to a folder does not count. The parent folder must
    // exist. The name becomes durable as that of a new file.
    virtual bool createFolder(std::u16string_view path) = 0;
    // Empty folders only.
    virtual bool removeFolder(std::u16string_view path) = 0;
    // The names of all entries of a folder, sorted by UTF-16 units; empty if it cannot be read. Names without a UTF-16
    // form are omitted.
    virtual std::vector<std::u16string> list(std::u16string_view path) = 0;
    // Bytes available to this user on the folder's volume; nullopt if unknown.
    virtual std::optional<std::uint64_t> freeSpace(std::u16string_view folder) = 0;

    // Opens a folder. In the result, paths inside it refer to the folder as opened, even if another takes its place
    // later, such as the folder below a mount point that is unmounted; other paths are as usual. The result keeps the
    // volume in use. Null if there is no such folder.
    virtual std::unique_ptr<Files> openFolder(std::u16string_view folder) = 0;
};
