// A small disk with the list files, for tests of replacing them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"

inline constexpr auto kPath = u"/disk/List.ini";
inline constexpr auto kTemporary = u"/disk/LIST.K7N";
inline constexpr auto kOther = u"/disk/User.ini";

// A disk of limited size, whose device may lose bytes written to a path.
class SmallDisk : public FakeFiles {
public:
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        if (path == refusing && refusals-- > 0) {
            return false;
        }
        if (!FakeFiles::write(path, bytes, flush)) {
            return false;
        }
        std::string& written = files[std::u16string(path)];
        std::size_t others = 0;
        for (const auto& [name, content] : files) {
            others += name == path ? 0 : content.size();
        }
        const std::size_t left = room > others ? room - others : 0;
        if (bytes.size() > left) {
            written.resize(left);
            return false;
        }
        return true;
    }
    // Only the old content is unreadable; the name can be replaced.
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
        unreadable.erase(std::u16string(to));
        return FakeFiles::rename(from, to, flush);
    }
    FileRead readBack(std::u16string_view path) override {
        FileRead read = FakeFiles::readBack(path);
        if (read.bytes && path == losing && losses-- > 0) {
            read.bytes->back() = '?';
        }
        return read;
    }

    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override {
        EXPECT_EQ(narrow(folder), "/disk");
        if (free) {
            return free;
        }
        std::size_t used = 0;
        for (const auto& [name, content] : files) {
            used += content.size();
        }
        return room > used ? room - used : 0;
    }

    std::size_t room = 1000;
    std::u16string losing;
    int losses = 1000;  // how many reads of it return damaged bytes
    std::u16string refusing;
    int refusals = 0;  // how many writes of it fail
};

class SmallDiskTest : public testing::Test {
protected:
    void expectOnly(const std::string& content) {
        EXPECT_EQ(disk.files, (std::map<std::u16string, std::string>{{kPath, content}}));
    }
    auto countOf(std::string_view access) const {
        return std::count(disk.accesses.begin(), disk.accesses.end(), access);
    }
    SmallDisk disk;
};
