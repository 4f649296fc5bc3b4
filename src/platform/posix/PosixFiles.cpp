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
#include <utility>

#include "platform/posix/NativePath.h"

namespace {

constexpr unsigned kDefaultPermissions = 0666;  // restricted by the umask
constexpr mode_t kFolderPermissions = 0777;

std::string folderOf(const std::string& path) { return path.substr(0, path.find_last_of('/') + 1); }

bool isThere(const std::string& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

constexpr std::size_t kWhole = std::string::npos;

FileRead contentOf(const std::string& path, bool fromDevice, std::size_t mostBytes = kWhole) {
    const PosixFile file(path, O_RDONLY);
    if (!file.isOpen()) {
        return isThere(path) ? FileRead::failed() : FileRead::missing();
    }
    if (!file.isRegular()) {
        return FileRead::failed();
    }
    if (fromDevice) {
        file.forgetCachedPages();
    }
    return {file.readUpTo(mostBytes)};
}

// Overwrites, then truncates: truncating first would cost a journal a second flush.
bool fill(const std::string& path, std::string_view bytes, Flush flush) {
    PosixFile file(path, O_WRONLY | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written =
        file.isRegular() && file.writeAll(bytes) && file.cutTo(bytes.size()) && (flush == Flush::Later || file.flush());
    return file.close() && written;
}

}  // namespace

bool PosixFiles::exists(std::u16string_view path) { return isThere(nativePath(path)); }

std::optional<std::uint64_t> PosixFiles::size(std::u16string_view path) {
    struct stat status = {};
    if (::stat(nativePath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
}

FileRead PosixFiles::read(std::u16string_view path) { return contentOf(nativePath(path), false); }

FileRead PosixFiles::readStart(std::u16string_view path, std::size_t mostBytes) {
    return contentOf(nativePath(path), false, mostBytes);
}

FileRead PosixFiles::readBack(std::u16string_view path) { return contentOf(nativePath(path), true); }

bool PosixFiles::write(std::u16string_view path, std::string_view bytes, Flush flush) {
    return fill(nativePath(path), bytes, flush);
}

bool PosixFiles::append(std::u16string_view path, std::string_view bytes) {
    const std::string name = nativePath(path);
    PosixFile file(name, O_WRONLY | O_APPEND | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written = file.isRegular() && file.writeAll(bytes) && file.flush() && flushFolder(folderOf(name));
    return file.close() && written;
}

bool PosixFiles::rename(std::u16string_view from, std::u16string_view to, Flush flush) {
    const std::string source = nativePath(from);
    const std::string target = nativePath(to);
    Renaming renaming{folderOf(target), PosixFile(source, O_RDONLY | O_NOFOLLOW),
                      PosixFile(target, O_RDONLY | O_NOFOLLOW)};
    if (!renaming.moved.isOpen() || ::rename(source.c_str(), target.c_str()) != 0) {
        return false;
    }
    renamings_.push_back(std::move(renaming));
    return flush == Flush::Later || flushFolder(folderOf(target));
}

bool PosixFiles::flushFolderOf(std::u16string_view path) { return flushFolder(folderOf(nativePath(path))); }

// A rename over a file is flushed after the folder: until then the entry may lead to the old clusters. A rename to a
// new name is flushed before it, since a new entry without its file would be empty.
bool PosixFiles::flushFolder(const std::string& folder) {
    const auto flushMoved = [&](bool replacing) {
        return std::count_if(renamings_.begin(), renamings_.end(), [&](const Renaming& renaming) {
                   return renaming.folder == folder && renaming.replaced.isOpen() == replacing &&
                          !renaming.moved.flush();
               }) == 0;
    };
    const bool created = flushMoved(false);
    const PosixFile opened(folder, O_RDONLY | O_DIRECTORY);
    const bool named = opened.isOpen() && opened.flush();
    const bool replaced = flushMoved(true);
    std::erase_if(renamings_, [&](const Renaming& renaming) { return renaming.folder == folder; });
    return created && named && replaced;
}

bool PosixFiles::remove(std::u16string_view path) {
    const std::string name = nativePath(path);
    return ::unlink(name.c_str()) == 0 && flushFolder(folderOf(name));
}

bool PosixFiles::clearAttributes(std::u16string_view path) {
    const std::string name = nativePath(path);
    struct stat status = {};
    constexpr mode_t kPermissionBits = 07777;
    if (::lstat(name.c_str(), &status) != 0 || S_ISLNK(status.st_mode)) {
        return false;
    }
    // Setting permissions that are already set would cause one more write at the next flush.
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
