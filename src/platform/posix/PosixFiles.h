// Files through system calls, since the C++ library cannot flush files.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/posix/PosixFile.h"

class PosixFiles : public Files {
public:
    PosixFiles() = default;

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
    // A rename that is not durable yet. FAT stores the location of a file in its folder entry and writes the entry when
    // the file is flushed, not the folder. Until then the entry on the device locates the clusters of the replaced
    // file, which are not reused while `replaced` is open.
    struct Renaming {
        std::string folder;
        PosixFile moved;
        PosixFile replaced;
    };

    PosixFiles(std::string folder, PosixFile opened);
    PosixPath at(std::u16string_view path) const;
    bool flushFolder(const PosixPath& folder);

    std::vector<Renaming> renamings_;
    std::string folder_;                 // paths inside it are relative to opened_
    std::unique_ptr<PosixFile> opened_;  // null: all paths are absolute
};
