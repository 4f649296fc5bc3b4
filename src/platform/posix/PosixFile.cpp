#include "platform/posix/PosixFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/magic.h>
#include <sys/vfs.h>
#endif

#include <algorithm>
#include <cerrno>

PosixFile::PosixFile(const PosixPath& path, int flags, unsigned permissions)
    // Without O_NONBLOCK opening a named pipe would block.
    : descriptor_(::openat(path.folder, path.name.c_str(), flags | O_CLOEXEC | O_NONBLOCK, permissions)) {}

PosixFile::~PosixFile() { close(); }

std::optional<std::size_t> PosixFile::size() const {
    struct stat status = {};
    const bool isRegular = isOpen() && ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    return isRegular ? std::optional(static_cast<std::size_t>(status.st_size)) : std::nullopt;
}

bool PosixFile::isLocatedByEntry() const {
#ifdef __linux__
    struct statfs volume = {};
    // The magic number is also that of ext2 and ext3.
    return ::fstatfs(descriptor_, &volume) != 0 || volume.f_type != EXT4_SUPER_MAGIC;
#else
    return true;
#endif
}

bool PosixFile::readInto(std::span<char> room, std::size_t& length) const {
    while (!room.empty()) {
        const ssize_t count = ::read(descriptor_, room.data(), room.size());
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return count == 0;
        }
        if (count > 0) {
            length += static_cast<std::size_t>(count);
            room = room.subspan(static_cast<std::size_t>(count));
        }
    }
    return true;
}

bool PosixFile::readUpTo(std::size_t mostBytes, std::string& bytes) const {
    constexpr std::size_t kMore = 4096;  // the file may grow during the read
    std::size_t length = 0;
    bool isRead = true;
    bytes.resize(std::min(size().value_or(0) + kMore, mostBytes));
    do {
        bytes.resize(std::min(std::max(bytes.size(), length + kMore), mostBytes));
        isRead = readInto(std::span(bytes).subspan(length), length);
    } while (isRead && length == bytes.size() && length < mostBytes);
    bytes.resize(length);
    return isRead;
}

bool PosixFile::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

// On FAT with the mount option "flush" each truncation starts to write the file's tables, and a failure of that write
// is reported to no call.
bool PosixFile::cutTo(std::size_t size) const {
    struct stat status = {};
    return ::fstat(descriptor_, &status) == 0 && (static_cast<std::size_t>(status.st_size) == size ||
                                                  ::ftruncate(descriptor_, static_cast<off_t>(size)) == 0);
}

bool PosixFile::flush() const {
#ifdef F_FULLFSYNC  // on these systems fsync does not flush the drive's own cache
    if (::fcntl(descriptor_, F_FULLFSYNC) == 0) {
        return true;
    }
#endif
    return ::fsync(descriptor_) == 0 || errno == EINVAL;
}

void PosixFile::forgetCachedPages() const {
#ifdef POSIX_FADV_DONTNEED
    ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_DONTNEED);
#elif defined(F_NOCACHE)
    ::fcntl(descriptor_, F_NOCACHE, 1);
#endif
}

bool PosixFile::close() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return descriptor < 0 || ::close(descriptor) == 0;
}
