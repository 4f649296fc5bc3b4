// Files in memory. Records every access, fails as configured, and supports folders and read-only files.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Files.h"

class FakeFiles : public Files {
public:
    bool exists(std::u16string_view path) override;
    std::optional<std::uint64_t> size(std::u16string_view path) override;
    FileRead read(std::u16string_view path) override;
    FileRead readStart(std::u16string_view path, std::size_t mostBytes) override;
    FileRead readBack(std::u16string_view path) override;
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override;
    bool lacksRoomForName(std::u16string_view path) override;
    bool append(std::u16string_view path, std::string_view bytes) override;
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override;
    bool flushFolderOf(std::u16string_view path) override;
    bool remove(std::u16string_view path) override;
    bool clearAttributes(std::u16string_view path) override;
    bool createFolder(std::u16string_view path) override;
    bool removeFolder(std::u16string_view path) override;
    std::vector<std::u16string> list(std::u16string_view path) override;
    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override;
    std::unique_ptr<Files> openFolder(std::u16string_view folder) override;

    // What a power cut makes of a file that was not flushed: the old content, the new, nothing or half.
    enum class Fate { Old, New, Empty, Torn };
    void cutPower(const std::function<Fate(std::u16string_view path)>& fateOf);

    // "read /x", "write /x" … in the order of the calls; size, exists, list and freeSpace are not recorded.
    std::vector<std::string> accesses;
    std::size_t bytesRead = 0;
    std::map<std::u16string, std::string> files;
    std::set<std::u16string> folders;
    std::set<std::u16string> readOnly;              // cannot be written, replaced by rename or removed
    std::map<std::u16string, std::uint64_t> sizes;  // sizes reported for files that are not in `files`
    std::optional<std::uint64_t> free;              // result of freeSpace
    std::size_t most = std::string::npos;           // how many files and folders there can be
    std::set<std::u16string> unreadable;  // can be written; reading fails after the first half, under a new name, too
    std::set<std::u16string> vanishing;   // writing reports success, but the file is gone
    std::set<std::u16string> failing;     // every operation on these paths fails

private:
    bool allowed(std::string_view operation, std::u16string_view path);
    bool writable(std::string_view operation, std::u16string_view path);
    void put(std::u16string_view path, std::string_view bytes);
    void keepOld(const std::u16string& path);

    // The content of each name when it was last durable; nullopt: no file.
    std::map<std::u16string, std::optional<std::string>> old_;
    std::set<std::u16string> unflushed_;  // files whose bytes may not be on the device yet
};
