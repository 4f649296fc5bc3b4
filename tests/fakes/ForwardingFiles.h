// Forwards every call to other files; a test double derives from it and overrides the methods under test.
#pragma once

#include "platform/Files.h"

class ForwardingFiles : public Files {
public:
    explicit ForwardingFiles(Files& files) : files_(files) {}

    bool exists(std::u16string_view path) override { return files_.exists(path); }
    std::optional<std::uint64_t> size(std::u16string_view path) override { return files_.size(path); }
    FileRead read(std::u16string_view path) override { return files_.read(path); }
    FileRead readStart(std::u16string_view path, std::size_t mostBytes) override {
        return files_.readStart(path, mostBytes);
    }
    FileRead readBack(std::u16string_view path) override { return files_.readBack(path); }
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        return files_.write(path, bytes, flush);
    }
    bool lacksRoomForName(std::u16string_view path) override { return files_.lacksRoomForName(path); }
    bool append(std::u16string_view path, std::string_view bytes) override { return files_.append(path, bytes); }
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
        return files_.rename(from, to, flush);
    }
    bool flushFolderOf(std::u16string_view path) override { return files_.flushFolderOf(path); }
    bool remove(std::u16string_view path) override { return files_.remove(path); }
    bool clearAttributes(std::u16string_view path) override { return files_.clearAttributes(path); }
    bool createFolder(std::u16string_view path) override { return files_.createFolder(path); }
    bool removeFolder(std::u16string_view path) override { return files_.removeFolder(path); }
    std::vector<std::u16string> list(std::u16string_view path) override { return files_.list(path); }
    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override { return files_.freeSpace(folder); }
    // Overridden methods count for the files of the folder, too.
    std::unique_ptr<Files> openFolder(std::u16string_view folder) override {
        return files_.openFolder(folder) ? std::make_unique<ForwardingFiles>(static_cast<Files&>(*this)) : nullptr;
    }

private:
    Files& files_;
};
