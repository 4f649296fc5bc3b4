#include "platform/posix/PosixProgramFolders.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include "platform/qt/Units.h"

namespace {

std::u16string withSeparator(const QString& path) { return fromQt(path.endsWith('/') ? path : path + '/'); }

}  // namespace

std::u16string PosixProgramFolders::ofExecutable() { return withSeparator(QCoreApplication::applicationDirPath()); }

bool PosixProgramFolders::canWrite(std::u16string_view folder) {
    return ::access(QFile::encodeName(toQt(folder)).constData(), W_OK) == 0;
}

std::u16string PosixProgramFolders::ofUser(std::u16string_view name) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + '/' + toQt(name);
    return QDir().mkpath(folder) ? withSeparator(QDir(folder).absolutePath()) : std::u16string();
}
