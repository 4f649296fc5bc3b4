// A block device in memory (/dev/nbd0), which records its writes and flushes and can fail.
#pragma once

#include <cstddef>
#include <mutex>
#include <thread>

#include "fat/BlockLog.h"

struct DeviceFaults {
    enum class Kind { None, Write, Flush, Cut };  // Cut: every request fails, reads included
    Kind kind = Kind::None;
    int first = 0;         // 1-based number of the failing request of that kind; for Cut, of a write or flush
    bool forGood = false;  // all requests from the first on fail
    // Offset of a sector that cannot be read until it is written.
    std::size_t badSector = std::string::npos;
};

class BlockDevice {
public:
    explicit BlockDevice(std::string medium);
    ~BlockDevice();  // no file system may be mounted
    BlockDevice(const BlockDevice&) = delete;
    BlockDevice& operator=(const BlockDevice&) = delete;

    bool isAttached() const { return device_ >= 0; }
    // From now on counts and records the requests, and fails those planned.
    void start(const DeviceFaults& faults);
    void mark();
    bool faultReached();
    BlockLog log();
    std::string medium();

private:
    void serve();
    bool handle(std::uint32_t type, std::uint64_t offset, std::string& bytes);
    bool fails(std::uint32_t type);
    bool isBad(std::size_t offset, std::size_t size) const;

    std::mutex mutex_;
    std::string medium_;
    BlockLog log_;
    DeviceFaults faults_;
    bool recording_ = false;
    int count_ = 0;
    int device_ = -1;
    int kernelEnd_ = -1;
    int serverEnd_ = -1;
    std::thread server_;
    std::thread queue_;
};
