#include "platform/posix/PosixProgramFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/posix/NativePath.h"

namespace {

std::u16string withSeparator(const std::filesystem::path& path) { return portablePath((path / "").native()); }

// The XDG base directory for user data; a relative value counts as unset. Empty for a user without a home directory.
std::filesystem::path userData() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') {
        return data;
    }
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home != '/') {
        const passwd* user = ::getpwuid(::getuid());
        home = user != nullptr ? user->pw_dir : nullptr;
    }
    return home != nullptr && *home == '/' ? std::filesystem::path(home) / ".local/share" : std::filesystem::path();
}

}  // namespace

std::u16string PosixProgramFolders::ofExecutable() {
    std::error_code error;
    return withSeparator(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
}

bool PosixProgramFolders::isForInstalledPrograms(std::u16string_view folder) {
    return folder.starts_with(u"/usr/") || folder.starts_with(u"/opt/");
}

bool PosixProgramFolders::canWrite(std::u16string_view folder) {
    return ::access(nativePath(folder).c_str(), W_OK) == 0;
}

std::u16string PosixProgramFolders::ofUser(std::u16string_view name) {
    const std::filesystem::path data = userData();
    return data.empty() ? std::u16string() : withSeparator(data / nativePath(name));
}

bool PosixProgramFolders::create(std::u16string_view folderOfUser) {
    const std::filesystem::path folder = nativePath(folderOfUser);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return std::filesystem::is_directory(folder, error);
}
