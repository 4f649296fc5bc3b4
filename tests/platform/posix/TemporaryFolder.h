// A folder for one test, removed with its content by the destructor.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/posix/NativePath.h"

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "halcyon-XXXXXX";
        path_ = ::mkdtemp(pattern.data());
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // The path of a name in the folder; the folder itself for an empty one.
    std::string native(std::string_view name) const { return name.empty() ? path_ : path_ + "/" + std::string(name); }
    std::u16string at(std::u16string_view name) const {
        return portablePath(path_) + (name.starts_with(u'/') ? u"" : u"/") + std::u16string(name);
    }

private:
    std::string path_;
};
