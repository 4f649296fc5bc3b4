#include "MemoryFiles.h"

#include <utility>

std::string* MemoryFiles::find(std::u16string_view path) {
    const auto found = files_.find(std::u16string(path));
    return found == files_.end() ? nullptr : &found->second;
}

std::optional<std::uint64_t> MemoryFiles::size(std::u16string_view path) {
    const std::string* bytes = find(path);
    return bytes == nullptr ? std::nullopt : std::optional<std::uint64_t>(bytes->size());
}

FileRead MemoryFiles::read(std::u16string_view path) {
    const std::string* bytes = find(path);
    return bytes == nullptr ? FileRead::missing() : FileRead::whole(*bytes);
}

FileRead MemoryFiles::readStart(std::u16string_view path, std::size_t mostBytes) {
    const std::string* bytes = find(path);
    return bytes == nullptr ? FileRead::missing() : FileRead::whole(bytes->substr(0, mostBytes));
}

std::optional<FileUnits> MemoryFiles::readUnits(std::u16string_view path, std::size_t mostBytes) {
    const std::string* bytes = find(path);
    if (bytes == nullptr || bytes->size() > mostBytes) {
        return std::nullopt;
    }
    FileUnits content(bytes->size());
    bytes->copy(content.data(), bytes->size());
    return content;
}

bool MemoryFiles::write(std::u16string_view path, std::string_view bytes, Flush) {
    files_[std::u16string(path)] = bytes;
    return true;
}

bool MemoryFiles::append(std::u16string_view path, std::string_view bytes) {
    files_[std::u16string(path)] += bytes;
    return true;
}

bool MemoryFiles::rename(std::u16string_view from, std::u16string_view to, Flush) {
    std::string* bytes = find(from);
    if (bytes == nullptr) {
        return false;
    }
    std::string moved = std::move(*bytes);
    remove(from);
    files_[std::u16string(to)] = std::move(moved);
    return true;
}
