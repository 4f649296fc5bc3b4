#include "platform/posix/PosixSingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <utility>

#include "platform/posix/NativePath.h"
#include "platform/posix/PosixFile.h"

PosixSingleInstance::PosixSingleInstance(std::u16string programFolder) : programFolder_(std::move(programFolder)) {}

PosixSingleInstance::~PosixSingleInstance() = default;

bool PosixSingleInstance::previousInstance() {
    if (lock_ != nullptr) {
        return false;
    }
    auto lock = std::make_unique<PosixFile>(PosixPath{AT_FDCWD, nativePath(programFolder_)}, O_RDONLY);
    // Only a lock held by another process counts: a folder that cannot be locked must not prevent the start.
    if (lock->isOpen() && ::flock(lock->descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return true;
    }
    lock_ = std::move(lock);
    return false;
}
