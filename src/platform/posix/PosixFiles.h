// Files of a POSIX system. The C++ library cannot flush files, hence the system calls.
#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/posix/PosixFile.h"

class PosixFiles : public Files {
public:
    bool exists(std::u16string_view path) override;
    std::optional<std::uint64_t> size(std::u16string_view path) override;
    FileRead read(std::u16string_view path) override;
    FileRead readBack(std::u16string_view path) override;
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override;
    bool append(std::u16string_view path, std::string_view bytes) override;
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override;
    bool flushFolderOf(std::u16string_view path) override;
    bool remove(std::u16string_view path) override;
    bool clearAttributes(std::u16string_view path) override;
    bool createFolder(std::u16string_view path) override;
    bool removeFolder(std::u16string_view path) override;
    std::vector<std::u16string> list(std::u16string_view path) override;
    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override;

private:
    // A rename that is not durable yet. FAT keeps where a file lies in the file's folder entry, and writes that with
    // the file, not with the folder. Until it is written the entry leads to the clusters of the replaced file, which
    // stay its own as long as that file is open.
    struct Renaming {
        std::string folder;
        PosixFile moved;
        PosixFile replaced;
    };

    bool flushFolder(const std::string& folder);

    std::vector<Renaming> renamings_;
};
