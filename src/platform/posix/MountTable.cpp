#include "platform/posix/MountTable.h"

#include <sys/stat.h>

#include <sstream>
#include <vector>

namespace {

// Blanks and some other characters are escaped as a backslash and three octal digits.
std::string unescaped(const std::string& field) {
    const auto octal = [](char c) { return c >= '0' && c <= '7'; };
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && octal(field[i + 1]) && octal(field[i + 2]) &&
            octal(field[i + 3])) {
            text.push_back(
                static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + field[i + 3] - '0'));
            i += 3;
        } else {
            text.push_back(field[i]);
        }
    }
    return text;
}

// The source of a network file system is host and path or has a scheme; it is never an absolute path.
bool isLocalSource(const std::string& source) {
    struct stat status = {};
    return source.starts_with('/') && !source.starts_with("//") && ::stat(source.c_str(), &status) == 0 &&
           (S_ISBLK(status.st_mode) || S_ISREG(status.st_mode));
}

bool isDisk(const std::string& device, const std::string& type, const std::string& source) {
    // Device numbers without a block device begin with 0.
    if (!device.starts_with("0:")) {
        return true;
    }
    const bool fuse = type == "fuse" || type == "fuseblk" || type.starts_with("fuse.");
    // Some disk file systems also have such numbers, with the device as their source.
    return (fuse || source.starts_with("/dev/")) && isLocalSource(source);
}

}  // namespace

std::set<std::string> diskMountPoints(std::string_view table) {
    std::set<std::string> points;
    std::istringstream lines{std::string(table)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::vector<std::string> fields;
        std::size_t separator = 0;
        for (std::string word; words >> word;) {
            fields.push_back(word);
            if (word == "-" && separator == 0) {
                separator = fields.size() - 1;
            }
        }
        // Fields: number, parent, device, root, mount point, options, any tags, "-", type, source, more options.
        constexpr std::size_t kDevice = 2;
        constexpr std::size_t kPoint = 4;
        if (separator > kPoint && separator + 2 < fields.size() &&
            isDisk(fields[kDevice], fields[separator + 1], unescaped(fields[separator + 2]))) {
            points.insert(unescaped(fields[kPoint]));
        }
    }
    return points;
}
