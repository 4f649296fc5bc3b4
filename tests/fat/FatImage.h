// Reads a FAT12 volume as Linux does without a check: the content of its files, or that reading them fails.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

class FatImage {
public:
    // By path ("List.ini", "Recovery/Snapshot1").
    using Tree = std::map<std::u16string, FileRead>;

    explicit FatImage(std::string_view medium);

    const Tree& files() const { return files_; }
    const std::vector<std::u16string>& folders() const { return folders_; }

private:
    std::uint32_t number(std::size_t offset, std::size_t size) const;
    std::uint32_t next(std::uint32_t cluster) const;
    FileRead chain(std::uint32_t cluster, std::size_t size) const;
    void readFolder(const std::string& entries, const std::u16string& prefix, int depth);

    std::string_view medium_;
    std::size_t fat_ = 0;
    std::size_t data_ = 0;
    std::size_t clusterSize_ = 0;
    std::uint32_t clusters_ = 0;
    Tree files_;
    std::vector<std::u16string> folders_;
};
