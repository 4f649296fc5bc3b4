// An open file of a POSIX system, closed by its destructor.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

class PosixFile {
public:
    // flags and permissions as for open(); the descriptor is never inherited by another program.
    PosixFile(const std::string& path, int flags, unsigned permissions = 0);
    ~PosixFile();
    PosixFile(PosixFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    PosixFile& operator=(PosixFile&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    bool isRegular() const;
    // From the current position to the end; nullopt on a read error.
    std::optional<std::string> readAll() const;
    bool writeAll(std::string_view bytes) const;
    bool cutTo(std::size_t size) const;  // what lies behind
    bool flush() const;                  // to the device; true also where the file system has no such notion
    void forgetCachedPages() const;      // so that the next read comes from the device, where the system can do that
    bool close();                        // false: what was written may be lost

private:
    int descriptor_;
};
