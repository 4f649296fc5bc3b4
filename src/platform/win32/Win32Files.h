// Files through the system's file functions.
#pragma once

#include <memory>

#include "platform/Files.h"

class Win32Files : public Files {
public:
    bool exists(std::u16string_view path) override;
    std::optional<std::uint64_t> size(std::u16string_view path) override;
    FileRead read(std::u16string_view path) override;
    FileRead readStart(std::u16string_view path, std::size_t mostBytes) override;
    std::optional<FileUnits> readUnits(std::u16string_view path, std::size_t mostBytes) override;
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

private:
    std::vector<std::u16string> moved_;  // renamed files whose new name is not durable yet
};
