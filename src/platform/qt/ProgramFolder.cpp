#include "platform/qt/ProgramFolder.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include "platform/qt/Units.h"

std::u16string programFolder(const QString& executableFolder, const QString& subFolder) {
    QDir folder(executableFolder);
    if (::access(QFile::encodeName(executableFolder).constData(), W_OK) != 0) {
        folder = QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + '/' + subFolder);
        folder.mkpath(QStringLiteral("."));
    }
    const QString path = folder.absolutePath();
    return fromQt(path.endsWith('/') ? path : path + '/');
}
