#include "platform/posix/PosixVolumes.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/posix/MountTable.h"
#include "platform/posix/NativePath.h"

namespace {

// Empty if the mount point has no UTF-16 form.
std::u16string rootOf(const std::string& mountPoint) {
    std::u16string root = portablePath(mountPoint);
    if (!root.empty() && !root.ends_with(u'/')) {
        root.push_back(u'/');
    }
    return root;
}

// Blanks and some other characters of a label are escaped in the name of its link, as \x20.
std::string withoutEscapes(std::string_view name) {
    std::string result;
    while (!name.empty()) {
        unsigned value = 0;
        if (name.starts_with("\\x") && name.size() >= 4 &&
            std::from_chars(name.data() + 2, name.data() + 4, value, 16).ptr == name.data() + 4) {
            result.push_back(static_cast<char>(value));
            name.remove_prefix(4);
        } else {
            result.push_back(name.front());
            name.remove_prefix(1);
        }
    }
    return result;
}

// udev links the labels of volumes to their devices. Empty if there is no such link.
std::string labelOfDevice(dev_t device) {
    std::error_code error;
    std::filesystem::directory_iterator link("/dev/disk/by-label", error);
    for (; link != std::filesystem::directory_iterator(); link.increment(error)) {
        struct stat status = {};
        if (::stat(link->path().c_str(), &status) == 0 && status.st_rdev == device) {
            return withoutEscapes(link->path().filename().native());
        }
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
        if (std::u16string root = rootOf(point); !root.empty()) {
            result.push_back(std::move(root));
        }
    }
    return result;
}

// A single file can also be a mount point, but is no volume.
bool PosixVolumes::isPresent(std::u16string_view root) {
    const std::vector<std::u16string> known = roots();
    struct stat status = {};
    return std::find(known.begin(), known.end(), root) != known.end() &&
           ::stat(nativePath(root).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::optional<std::u16string> PosixVolumes::label(std::u16string_view root) {
    struct stat status = {};
    if (!isPresent(root) || ::stat(nativePath(root).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return portablePath(labelOfDevice(status.st_dev));
}

std::optional<DiskGeometry> PosixVolumes::geometry(std::u16string_view root) {
    struct statvfs status = {};
    if (!isPresent(root) || ::statvfs(nativePath(root).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return DiskGeometry{1, static_cast<std::uint32_t>(status.f_frsize), status.f_blocks};
}
