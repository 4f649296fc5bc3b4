#include "platform/posix/PosixVolumes.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <fstream>
#include <sstream>

#include "platform/posix/MountTable.h"
#include "platform/qt/Units.h"

namespace {

std::string native(std::u16string_view path) { return QFile::encodeName(toQt(path)).toStdString(); }

std::u16string rootOf(const std::string& mountPoint) {
    std::u16string root = fromQt(QFile::decodeName(mountPoint.c_str()));
    if (!root.ends_with(u'/')) {
        root.push_back(u'/');
    }
    return root;
}

// The device manager's links to the devices are named by their labels, blanks and the like as \xNN.
QString labelOfDevice(dev_t device) {
    QDirIterator links(QStringLiteral("/dev/disk/by-label"), QDir::System | QDir::Files);
    while (links.hasNext()) {
        struct stat status {};
        if (::stat(QFile::encodeName(links.next()).constData(), &status) != 0 || status.st_rdev != device) {
            continue;
        }
        static const QRegularExpression kEscape(QStringLiteral("\\\\x([0-9a-f]{2})"));
        QByteArray name = links.fileName().toUtf8();
        for (auto match = kEscape.match(QString::fromLatin1(name)); match.hasMatch();
             match = kEscape.match(QString::fromLatin1(name), match.capturedStart() + 1)) {
            name.replace(match.capturedStart(), match.capturedLength(),
                         QByteArray::fromHex(match.captured(1).toLatin1()));
        }
        return QString::fromUtf8(name);
    }
    return {};
}

}  // namespace

std::vector<std::u16string> PosixVolumes::roots() {
    std::ifstream file(mountTable_, std::ios::binary);
    std::ostringstream table;
    table << file.rdbuf();
    std::vector<std::u16string> result;
    for (const std::string& point : diskMountPoints(table.str())) {
        result.push_back(rootOf(point));
    }
    return result;
}

// A single file can be mounted too; it is no disk.
bool PosixVolumes::isPresent(std::u16string_view root) {
    const std::vector<std::u16string> known = roots();
    struct stat status {};
    return std::find(known.begin(), known.end(), root) != known.end() && ::stat(native(root).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::optional<std::u16string> PosixVolumes::label(std::u16string_view root) {
    struct stat status {};
    if (!isPresent(root) || ::stat(native(root).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return fromQt(labelOfDevice(status.st_dev));
}

std::optional<DiskGeometry> PosixVolumes::geometry(std::u16string_view root) {
    struct statvfs status {};
    if (!isPresent(root) || ::statvfs(native(root).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return DiskGeometry{1, static_cast<std::uint32_t>(status.f_frsize), status.f_blocks};
}
