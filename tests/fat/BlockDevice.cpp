#include "fat/BlockDevice.h"

#include <endian.h>
#include <fcntl.h>
#include <linux/nbd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <utility>

namespace {

constexpr std::size_t kSector = 512;

bool receive(int socket, void* to, std::size_t size) {
    return ::recv(socket, to, size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

bool sendAll(int socket, const void* from, std::size_t size) {
    const char* bytes = static_cast<const char*>(from);
    while (size > 0) {
        const ssize_t sent = ::send(socket, bytes, size, MSG_NOSIGNAL);
        if (sent <= 0) {
            return false;
        }
        bytes += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return true;
}

}  // namespace

BlockDevice::BlockDevice(std::string medium) : medium_(std::move(medium)) {
    int ends[2] = {-1, -1};
    const int device = ::open("/dev/nbd0", O_RDWR | O_CLOEXEC);
    if (device < 0 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        return;
    }
    kernelEnd_ = ends[0];
    serverEnd_ = ends[1];
    const bool ready = ::ioctl(device, NBD_SET_BLKSIZE, kSector) == 0 &&
                       ::ioctl(device, NBD_SET_SIZE_BLOCKS, medium_.size() / kSector) == 0 &&
                       ::ioctl(device, NBD_SET_FLAGS, NBD_FLAG_HAS_FLAGS | NBD_FLAG_SEND_FLUSH) == 0 &&
                       ::ioctl(device, NBD_SET_SOCK, kernelEnd_) == 0;
    if (!ready) {
        ::close(device);
        return;
    }
    device_ = device;
    server_ = std::thread([this] {
        serve();
        ::shutdown(serverEnd_, SHUT_RDWR);  // the kernel's queue ends when its peer closes
    });
    queue_ = std::thread([this] { ::ioctl(device_, NBD_DO_IT); });
    // The size is known once the queue has started; a read waits for that.
    std::string sector(kSector, '\0');
    while (::pread(device_, sector.data(), sector.size(), 0) != static_cast<ssize_t>(kSector)) {
        ::usleep(1000);
    }
}

BlockDevice::~BlockDevice() {
    if (isAttached()) {
        ::ioctl(device_, NBD_DISCONNECT);
        server_.join();
        queue_.join();
        ::ioctl(device_, NBD_CLEAR_SOCK);
        ::close(device_);
    }
    ::close(kernelEnd_);
    ::close(serverEnd_);
}

void BlockDevice::start(const DeviceFaults& faults) {
    const std::lock_guard lock(mutex_);
    faults_ = faults;
    count_ = 0;
    log_ = {medium_, {}};
    recording_ = true;
}

void BlockDevice::mark() {
    const std::lock_guard lock(mutex_);
    log_.events.push_back({BlockEvent::Kind::Mark, 0, {}});
}

bool BlockDevice::faultReached() {
    const std::lock_guard lock(mutex_);
    return faults_.kind != DeviceFaults::Kind::None && count_ >= faults_.first;
}

BlockLog BlockDevice::log() {
    const std::lock_guard lock(mutex_);
    return log_;
}

std::string BlockDevice::medium() {
    const std::lock_guard lock(mutex_);
    return medium_;
}

bool BlockDevice::fails(std::uint32_t type) {
    const bool counts = (type == NBD_CMD_WRITE && faults_.kind != DeviceFaults::Kind::Flush) ||
                        (type == NBD_CMD_FLUSH && faults_.kind != DeviceFaults::Kind::Write);
    const bool cut = faults_.kind == DeviceFaults::Kind::Cut;
    if (!recording_ || faults_.kind == DeviceFaults::Kind::None) {
        return false;
    }
    if (!counts) {
        return cut && count_ >= faults_.first;
    }
    ++count_;
    return count_ == faults_.first || (count_ > faults_.first && (faults_.forGood || cut));
}

bool BlockDevice::isBad(std::size_t offset, std::size_t size) const {
    return recording_ && faults_.badSector >= offset && faults_.badSector < offset + size;
}

bool BlockDevice::handle(std::uint32_t type, std::uint64_t offset, std::string& bytes) {
    const std::lock_guard lock(mutex_);
    if (fails(type)) {
        return false;
    }
    const auto at = static_cast<std::size_t>(offset);
    switch (type) {
        case NBD_CMD_READ:
            if (isBad(at, bytes.size())) {
                return false;
            }
            bytes = medium_.substr(at, bytes.size());
            return true;
        case NBD_CMD_WRITE:
            if (isBad(at, bytes.size())) {
                faults_.badSector = std::string::npos;
            }
            medium_.replace(at, bytes.size(), bytes);
            if (recording_) {
                log_.events.push_back({BlockEvent::Kind::Write, offset, bytes});
            }
            return true;
        default:
            if (recording_) {
                log_.events.push_back({BlockEvent::Kind::Flush, 0, {}});
            }
            return true;
    }
}

void BlockDevice::serve() {
    nbd_request request{};
    while (receive(serverEnd_, &request, sizeof request)) {
        const std::uint32_t type = be32toh(request.type) & 0xFFFFU;
        std::string bytes(type == NBD_CMD_FLUSH ? 0 : be32toh(request.len), '\0');
        if (type == NBD_CMD_DISC || (type == NBD_CMD_WRITE && !receive(serverEnd_, bytes.data(), bytes.size()))) {
            return;
        }
        nbd_reply reply{};
        reply.magic = htobe32(NBD_REPLY_MAGIC);
        const bool done = handle(type, be64toh(request.from), bytes);
        reply.error = htobe32(done ? 0 : EIO);
        std::memcpy(reply.handle, request.handle, sizeof reply.handle);
        if (!sendAll(serverEnd_, &reply, sizeof reply) ||
            (done && type == NBD_CMD_READ && !sendAll(serverEnd_, bytes.data(), bytes.size()))) {
            return;
        }
    }
}
