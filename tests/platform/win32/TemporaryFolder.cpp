#include "platform/win32/TemporaryFolder.h"

#include <windows.h>

#include <fstream>
#include <sstream>
#include <system_error>

TemporaryFolder::TemporaryFolder() {
    static int count = 0;
    const std::string name = "halcyon-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
}

std::string TemporaryFolder::read(std::string_view name) const {
    std::ifstream stream(file(name), std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}
