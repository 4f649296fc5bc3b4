// Files in memory with little overhead, so that the program's own work is measured. A whole file system, not a wrapper
// that forwards.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/Files.h"

class MemoryFiles : public Files {
public:
    bool exists(std::u16string_view path) override { return find(path) != nullptr; }
    std::optional<std::uint64_t> size(std::u16string_view path) override;
    FileRead read(std::u16string_view path) override;
    FileRead readStart(std::u16string_view path, std::size_t mostBytes) override;
    std::optional<FileUnits> readUnits(std::u16string_view path, std::size_t mostBytes) override;
    FileRead readBack(std::u16string_view path) override { return read(path); }
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override;
    bool lacksRoomForName(std::u16string_view) override { return false; }
    bool append(std::u16string_view path, std::string_view bytes) override;
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override;
    bool flushFolderOf(std::u16string_view) override { return true; }
    bool remove(std::u16string_view path) override { return files_.erase(std::u16string(path)) > 0; }
    bool clearAttributes(std::u16string_view path) override { return exists(path); }
    // The storage routines know no folders.
    bool createFolder(std::u16string_view) override { return true; }
    bool removeFolder(std::u16string_view) override { return false; }
    std::vector<std::u16string> list(std::u16string_view) override { return {}; }
    std::optional<std::uint64_t> freeSpace(std::u16string_view) override { return std::nullopt; }
    std::unique_ptr<Files> openFolder(std::u16string_view) override { return nullptr; }

private:
    std::string* find(std::u16string_view path);

    std::unordered_map<std::u16string, std::string> files_;
};
