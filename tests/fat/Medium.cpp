#include "fat/Medium.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

// Exit status of a command without its output.
int statusOf(const std::string& command) {
    const int status = std::system((command + " >/dev/null 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// 0: the file system was sound; 1: it was put right.
bool isSoundAfter(const std::string& check) {
    const int status = statusOf("exec " + check);
    return status == 0 || status == 1;
}

}  // namespace

WorkFolder::WorkFolder() {
    std::string name = std::filesystem::temp_directory_path().string() + "/halcyon-fat-XXXXXX";
    path_ = ::mkdtemp(name.data());
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

bool succeeds(const std::string& command) { return statusOf("{ " + command + "; }") == 0; }

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

bool makeImages(const WorkFolder& work) {
    const auto fat = [&](const char* name, const char* options) {
        const std::string file = work.at(name);
        return succeeds("truncate -s 1042944 " + file + " && mkfs.fat -a -F 12 -S 512 -r 512 -R 1 " + options + " " +
                        file);
    };
    // An ext4 of one group has no second superblock, which the check needs if the first one, of two sectors, is torn.
    const auto ext = [&](const std::string& kind, const char* size) {
        const std::string file = work.at(kind);
        return succeeds("truncate -s " + std::string(size) + " " + file + " && mke2fs -F -t " + kind +
                        " -b 1024 -N 32 -m 0 " + file);
    };
    return fat("fat1024", "-s 2 -f 2") && fat("fat512", "-s 1 -f 2") && fat("fat1024one", "-s 2 -f 1") &&
           ext("ext2", "1022976") && ext("ext4", "12M");
}

Tree Medium::checkedFat(const std::string& bytes) const {
    put(bytes);
    return isSoundAfter("fsck.fat -a " + file_) ? rawFat(contentOf(file_)) : Tree();
}

Tree Medium::checkedExt(const std::string& bytes) const {
    put(bytes);
    if (!isSoundAfter("e2fsck -fy " + file_)) {
        return {};
    }
    const std::string copies = file_ + ".files";
    std::filesystem::remove_all(copies);
    std::filesystem::create_directory(copies);
    statusOf("exec debugfs -R 'rdump / " + copies + "' " + file_);
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(copies)) {
        if (entry.is_regular_file()) {
            tree[std::filesystem::relative(entry.path(), copies).u16string()] =
                FileRead::whole(contentOf(entry.path()));
        }
    }
    return tree;
}

void Medium::put(const std::string& bytes) const {
    std::ofstream(file_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}
