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

PosixPath folderOf(const PosixPath& path) {
    return {path.folder, path.name.substr(0, path.name.find_last_of('/') + 1)};
}

bool isThere(const PosixPath& path) {
    struct stat status = {};
    return ::fstatat(path.folder, path.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 ||
           (errno != ENOENT && errno != ENOTDIR);
}

constexpr std::size_t kWhole = std::string::npos;

FileRead contentOf(const PosixPath& path, bool fromDevice, std::size_t mostBytes = kWhole) {
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
    std::string bytes;
    return file.readUpTo(mostBytes, bytes) ? FileRead::whole(std::move(bytes)) : FileRead::failed(std::move(bytes));
}

// Overwrites, then truncates: truncating first would cost a journal a second flush.
bool fill(const PosixPath& path, std::string_view bytes, Flush flush) {
    PosixFile file(path, O_WRONLY | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written =
        file.isRegular() && file.writeAll(bytes) && file.cutTo(bytes.size()) && (flush == Flush::Later || file.flush());
    return file.close() && written;
}

}  // namespace

PosixFiles::PosixFiles(std::string folder, PosixFile opened)
    : folder_(std::move(folder)), opened_(std::make_unique<PosixFile>(std::move(opened))) {}

PosixPath PosixFiles::at(std::u16string_view path) const {
    std::string name = nativePath(path);
    if (opened_ != nullptr && name.starts_with(folder_) &&
        (name.size() == folder_.size() || name[folder_.size()] == '/')) {
        return {opened_->descriptor(), "./" + name.substr(std::min(folder_.size() + 1, name.size()))};
    }
    return {AT_FDCWD, std::move(name)};
}

bool PosixFiles::exists(std::u16string_view path) { return isThere(at(path)); }

std::optional<std::uint64_t> PosixFiles::size(std::u16string_view path) {
    const PosixPath place = at(path);
    struct stat status = {};
    if (::fstatat(place.folder, place.name.c_str(), &status, 0) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
}

FileRead PosixFiles::read(std::u16string_view path) { return contentOf(at(path), false); }

FileRead PosixFiles::readStart(std::u16string_view path, std::size_t mostBytes) {
    return contentOf(at(path), false, mostBytes);
}

std::optional<FileUnits> PosixFiles::readUnits(std::u16string_view path, std::size_t mostBytes) {
    const PosixFile file(at(path), O_RDONLY);
    const auto size = file.size();
    if (!size || *size > mostBytes) {
        return std::nullopt;
    }
    FileUnits content(*size);
    content.byteCount = 0;
    if (!file.readInto({content.data(), *size + 1}, content.byteCount)) {
        return std::nullopt;
    }
    // More bytes than its size: the file is growing.
    return content.byteCount > *size ? Files::readUnits(path, mostBytes) : content;
}

FileRead PosixFiles::readBack(std::u16string_view path) { return contentOf(at(path), true); }

bool PosixFiles::write(std::u16string_view path, std::string_view bytes, Flush flush) {
    return fill(at(path), bytes, flush);
}

bool PosixFiles::lacksRoomForName(std::u16string_view path) {
    const PosixPath place = at(path);
    if (!PosixFile(place, O_WRONLY | O_CREAT | O_EXCL, kDefaultPermissions).isOpen()) {
        return errno == ENOSPC;
    }
    ::unlinkat(place.folder, place.name.c_str(), 0);
    return false;
}

bool PosixFiles::append(std::u16string_view path, std::string_view bytes) {
    PosixFile file(at(path), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CREAT, kDefaultPermissions);
    const bool written = file.isRegular() && file.writeAll(bytes) && file.flush();
    return file.close() && written;
}

bool PosixFiles::rename(std::u16string_view from, std::u16string_view to, Flush flush) {
    const PosixPath source = at(from);
    const PosixPath target = at(to);
    Renaming renaming{folderOf(target).name, PosixFile(source, O_RDONLY | O_NOFOLLOW),
                      PosixFile(target, O_RDONLY | O_NOFOLLOW)};
    if (!renaming.moved.isOpen() ||
        ::renameat(source.folder, source.name.c_str(), target.folder, target.name.c_str()) != 0) {
        return false;
    }
    renamings_.push_back(std::move(renaming));
    return flush == Flush::Later || flushFolder(folderOf(target));
}

bool PosixFiles::flushFolderOf(std::u16string_view path) { return flushFolder(folderOf(at(path))); }

// A file that replaced another is flushed after the folder, as its entry may still locate the old clusters until then;
// an entry that names an inode is complete. A file with a new name is flushed before the folder, as a new entry would
// otherwise describe an empty file.
bool PosixFiles::flushFolder(const PosixPath& folder) {
    const auto flushMoved = [&](bool replacing) {
        return std::count_if(renamings_.begin(), renamings_.end(), [&](const Renaming& renaming) {
                   return renaming.folder == folder.name && renaming.replaced.isOpen() == replacing &&
                          (!replacing || renaming.moved.isLocatedByEntry()) && !renaming.moved.flush();
               }) == 0;
    };
    const bool created = flushMoved(false);
    const PosixFile opened(folder, O_RDONLY | O_DIRECTORY);
    const bool named = opened.isOpen() && opened.flush();
    const bool replaced = flushMoved(true);
    std::erase_if(renamings_, [&](const Renaming& renaming) { return renaming.folder == folder.name; });
    return created && named && replaced;
}

bool PosixFiles::remove(std::u16string_view path) {
    const PosixPath place = at(path);
    return ::unlinkat(place.folder, place.name.c_str(), 0) == 0 && flushFolder(folderOf(place));
}

bool PosixFiles::clearAttributes(std::u16string_view path) {
    const PosixPath place = at(path);
    struct stat status = {};
    constexpr mode_t kPermissionBits = 07777;
    if (::fstatat(place.folder, place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || S_ISLNK(status.st_mode)) {
        return false;
    }
    // Setting permissions that are already set would cause one more write at the next flush.
    return (status.st_mode & S_IWUSR) != 0 ||
           ::fchmodat(place.folder, place.name.c_str(), (status.st_mode & kPermissionBits) | S_IWUSR, 0) == 0;
}

bool PosixFiles::createFolder(std::u16string_view path) {
    const PosixPath place = at(path);
    if (::mkdirat(place.folder, place.name.c_str(), kFolderPermissions) == 0) {
        return true;
    }
    struct stat status = {};
    return ::fstatat(place.folder, place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

bool PosixFiles::removeFolder(std::u16string_view path) {
    const PosixPath place = at(path);
    return ::unlinkat(place.folder, place.name.c_str(), AT_REMOVEDIR) == 0;
}

std::vector<std::u16string> PosixFiles::list(std::u16string_view path) {
    const PosixPath place = at(path);
    const int descriptor = ::openat(place.folder, place.name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::fdopendir(descriptor), ::closedir);
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
    const PosixFile opened(at(folder), O_RDONLY | O_DIRECTORY);
    struct statvfs volume = {};
    if (!opened.isOpen() || ::fstatvfs(opened.descriptor(), &volume) != 0) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(volume.f_bavail) * volume.f_frsize;
}

std::unique_ptr<Files> PosixFiles::openFolder(std::u16string_view folder) {
    PosixFile opened(at(folder), O_RDONLY | O_DIRECTORY);
    if (!opened.isOpen()) {
        return nullptr;
    }
    return std::unique_ptr<Files>(new PosixFiles(nativePath(folder), std::move(opened)));
}
