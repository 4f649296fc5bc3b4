#include "platform/posix/PosixFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "platform/posix/NativePath.h"
#include "platform/posix/PosixFile.h"

namespace {

constexpr unsigned kDefaultPermissions = 0666;  // less what the user's mask takes away
constexpr mode_t kFolderPermissions = 0777;

// Makes a new name in the folder durable. Some file systems have no such notion; nothing is lost then.
void flushFolder(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash != std::string::npos) {
        const PosixFile folder(path.substr(0, slash + 1), O_RDONLY | O_DIRECTORY);
        if (folder.isOpen()) {
            folder.flush();
        }
    }
}

// Writes over what is there and cuts the rest off: giving up the old blocks first would cost a journal a second flush.
bool fill(const std::string& path, std::string_view bytes, bool flush) {
    PosixFile file(path, O_WRONLY | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written =
        file.isRegular() && file.writeAll(bytes) && file.cutTo(bytes.size()) && (!flush || file.flush());
    return file.close() && written;
}

}  // namespace

bool PosixFiles::exists(std::u16string_view path) {
    struct stat status = {};
    return ::lstat(nativePath(path).c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

std::optional<std::uint64_t> PosixFiles::size(std::u16string_view path) {
    struct stat status = {};
    if (::stat(nativePath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
}

std::optional<std::string> PosixFiles::read(std::u16string_view path) {
    const PosixFile file(nativePath(path), O_RDONLY);
    return file.isRegular() ? file.readAll() : std::nullopt;
}

std::optional<std::string> PosixFiles::readBack(std::u16string_view path) {
    const PosixFile file(nativePath(path), O_RDONLY);
    if (!file.isRegular()) {
        return std::nullopt;
    }
    file.forgetCachedPages();
    return file.readAll();
}

bool PosixFiles::write(std::u16string_view path, std::string_view bytes) { return fill(nativePath(path), bytes, true); }

bool PosixFiles::writeUnflushed(std::u16string_view path, std::string_view bytes) {
    return fill(nativePath(path), bytes, false);
}

bool PosixFiles::append(std::u16string_view path, std::string_view bytes) {
    const std::string name = nativePath(path);
    PosixFile file(name, O_WRONLY | O_APPEND | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written = file.isRegular() && file.writeAll(bytes) && file.flush();
    flushFolder(name);
    return file.close() && written;
}

bool PosixFiles::rename(std::u16string_view from, std::u16string_view to) {
    if (!renameUnflushed(from, to)) {
        return false;
    }
    flushFolderOf(to);
    return true;
}

bool PosixFiles::renameUnflushed(std::u16string_view from, std::u16string_view to) {
    return ::rename(nativePath(from).c_str(), nativePath(to).c_str()) == 0;
}

void PosixFiles::flushFolderOf(std::u16string_view path) { flushFolder(nativePath(path)); }

bool PosixFiles::remove(std::u16string_view path) {
    const std::string name = nativePath(path);
    if (::unlink(name.c_str()) != 0) {
        return false;
    }
    flushFolder(name);
    return true;
}

bool PosixFiles::clearAttributes(std::u16string_view path) {
    const std::string name = nativePath(path);
    struct stat status = {};
    constexpr mode_t kPermissionBits = 07777;
    if (::lstat(name.c_str(), &status) != 0 || S_ISLNK(status.st_mode)) {
        return false;
    }
    // A change to the same permissions would be one more for the next flush to write.
    return (status.st_mode & S_IWUSR) != 0 || ::chmod(name.c_str(), (status.st_mode & kPermissionBits) | S_IWUSR) == 0;
}

bool PosixFiles::createFolder(std::u16string_view path) {
    const std::string name = nativePath(path);
    if (::mkdir(name.c_str(), kFolderPermissions) == 0) {
        return true;
    }
    struct stat status = {};
    return ::lstat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool PosixFiles::removeFolder(std::u16string_view path) { return ::rmdir(nativePath(path).c_str()) == 0; }

std::vector<std::u16string> PosixFiles::list(std::u16string_view path) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(nativePath(path).c_str()), ::closedir);
    std::vector<std::u16string> names;
    if (folder == nullptr) {
        return names;
    }
    while (const dirent* const entry = ::readdir(folder.get())) {
        const std::u16string name = portablePath(static_cast<const char*>(entry->d_name));
        if (!name.empty() && name != u"." && name != u"..") {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::uint64_t> PosixFiles::freeSpace(std::u16string_view folder) {
    struct statvfs volume = {};
    if (::statvfs(nativePath(folder).c_str(), &volume) != 0) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(volume.f_bavail) * volume.f_frsize;
}
