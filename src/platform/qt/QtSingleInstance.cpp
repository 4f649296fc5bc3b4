#include "platform/qt/QtSingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>

#include <QFile>
#include <cerrno>
#include <utility>

#include "platform/qt/PosixFile.h"
#include "platform/qt/Units.h"

QtSingleInstance::QtSingleInstance(std::u16string programFolder) : programFolder_(std::move(programFolder)) {}

QtSingleInstance::~QtSingleInstance() = default;

bool QtSingleInstance::previousInstance() {
    if (lock_ != nullptr) {
        return false;
    }
    auto lock = std::make_unique<PosixFile>(QFile::encodeName(toQt(programFolder_)).toStdString(), O_RDONLY);
    // Only a lock that is held counts: a folder that cannot be locked must not keep the program from starting.
    if (lock->isOpen() && ::flock(lock->descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return true;
    }
    lock_ = std::move(lock);
    return false;
}
