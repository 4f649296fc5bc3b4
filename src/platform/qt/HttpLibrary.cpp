#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <string>

#include "platform/qt/HttpExchange.h"

HttpExchange loadHttpExchange(const QByteArray& bytes) {
    // The system loads libraries from files only. One in memory leaves nothing on a disk.
    const int descriptor = ::memfd_create("http_exchange", MFD_CLOEXEC);
    if (descriptor < 0) {
        return nullptr;
    }
    QFile file;
    void* library = nullptr;
    if (file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size()) {
        const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
        library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    if (library == nullptr) {
        ::close(descriptor);
        return nullptr;
    }
    // Left open: the system knows a library by its name, and a later file must not come to have this one's.
    return reinterpret_cast<HttpExchange>(::dlsym(library, "exchangeOverHttp"));
}
