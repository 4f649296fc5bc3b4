// An open file; the destructor closes it.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

// A path as the system's *at() functions take it.
struct PosixPath {
    int folder;  // descriptor of the folder that a relative name starts from; AT_FDCWD: the current one
    std::string name;
};

class PosixFile {
public:
    // flags and permissions as for open(); other programs do not inherit the descriptor.
    PosixFile(const PosixPath& path, int flags, unsigned permissions = 0);
    ~PosixFile();
    PosixFile(PosixFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    PosixFile& operator=(PosixFile&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    // In bytes; nullopt if it is not a regular file.
    std::optional<std::size_t> size() const;
    bool isRegular() const { return size().has_value(); }
    // True if the folder entry holds the location of the file, as on FAT, and on every file system but ext2 to ext4:
    // on the others no power cut was tried that shows the opposite.
    bool isLocatedByEntry() const;
    // Reads from the current position until the end or until `room` is full; adds the bytes read to `length`. False on
    // a read error.
    bool readInto(std::span<char> room, std::size_t& length) const;
    // Reads from the current position to the end, or that many bytes. False on a read error; `bytes` then holds what
    // came before it.
    bool readUpTo(std::size_t mostBytes, std::string& bytes) const;
    bool writeAll(std::string_view bytes) const;
    bool cutTo(std::size_t size) const;  // truncates
    bool flush() const;                  // to the device; also true if the file system has no such operation
    void forgetCachedPages() const;      // the next read then comes from the device, if the system supports that
    bool close();                        // false: written bytes may be lost

private:
    int descriptor_;
};
