// A temporary folder for one test, removed with its content by the destructor.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path file(std::string_view name) const { return path_ / name; }
    void write(std::string_view name, std::string_view bytes) const;
    std::string read(std::string_view name) const;  // empty if the file does not exist

private:
    std::filesystem::path path_;
};
