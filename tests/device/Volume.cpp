#include "device/Volume.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace {

bool succeeds(const std::string& command) { return std::system(("( " + command + " ) >/dev/null 2>&1").c_str()) == 0; }

void run(const std::string& command) {
    if (!succeeds(command)) {
        throw std::runtime_error("failed: " + command);
    }
}

std::string newFolder() {
    std::string name = "/tmp/halcyon-device-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    return name;
}

}  // namespace

bool Volume::isPossible() {
    static const bool possible = ::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0 &&
                                 succeeds("mount --make-rprivate /") && succeeds("losetup -f");
    return possible;
}

Volume::Volume() : base_(newFolder()), image_(base_ + "/image"), folder_(base_ + "/disk") {
    run("truncate -s 1022976 " + image_ + " && mke2fs -q -F -t ext2 -b 1024 -N 32 -m 0 " + image_ + " 999");
    mount();
}

Volume::Volume(const std::string& image) : base_(newFolder()), image_(base_ + "/image"), folder_(base_ + "/disk") {
    run("cp " + image + " " + image_);
    // 0: sound; 1: repaired.
    run("e2fsck -fy " + image_ + "; [ $? -le 1 ]");
    mount();
}

Volume::~Volume() {
    succeeds("umount -l " + folder_);
    succeeds("rm -rf --one-file-system " + base_);
}

void Volume::mount() {
    if (::mkdir(folder_.c_str(), S_IRWXU) != 0) {
        throw std::runtime_error("no mount point");
    }
    run("mount -o loop " + image_ + " " + folder_);
}

std::u16string Volume::at(std::u16string_view name) const {
    return std::u16string(folder_.begin(), folder_.end()) + u'/' + std::u16string(name);
}

void Volume::makeReadOnly() const { run("mount -o remount,ro " + folder_); }

void Volume::leaveFree(std::uint64_t bytes) const {
    const std::string filler = folder_ + "/filler";
    const int descriptor = ::open(filler.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const std::vector<char> block(1024, 'f');
    off_t size = 0;
    while (::write(descriptor, block.data(), block.size()) == static_cast<ssize_t>(block.size())) {
        size += static_cast<off_t>(block.size());
    }
    const off_t kept = size > static_cast<off_t>(bytes) ? size - static_cast<off_t>(bytes) : 0;
    const bool done = ::ftruncate(descriptor, kept) == 0 && ::fsync(descriptor) == 0;
    ::close(descriptor);
    if (!done) {
        throw std::runtime_error("cannot fill " + folder_);
    }
}

void Volume::empty() const { ::unlink((folder_ + "/filler").c_str()); }

std::string Volume::pull() {
    std::string medium = base_ + "-medium";
    const std::string device = "$(losetup -n -O NAME -j " + image_ + " | head -1)";
    run("cp " + image_ + " " + medium);
    run("D=" + device + "; truncate -s 0 " + image_ + " && losetup -c $D");
    return medium;
}
