#include "platform/win32/Win32Volumes.h"

#include <windows.h>

#include <array>

#include "platform/win32/WideText.h"

namespace {

// An empty card reader must give an error, not a system message that asks for a disk.
class SilentErrors {
public:
    SilentErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &previous_); }
    ~SilentErrors() { SetThreadErrorMode(previous_, nullptr); }
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;

private:
    DWORD previous_ = 0;
};

}  // namespace

std::vector<std::u16string> Win32Volumes::roots() {
    std::vector<std::u16string> result;
    for (char16_t letter = u'a'; letter <= u'z'; ++letter) {
        result.push_back(std::u16string(1, letter) + u":\\");
    }
    return result;
}

bool Win32Volumes::isPresent(std::u16string_view root) {
    const SilentErrors silent;
    return GetDriveTypeW(toWide(root).c_str()) != DRIVE_NO_ROOT_DIR;
}

std::optional<std::u16string> Win32Volumes::label(std::u16string_view root) {
    const SilentErrors silent;
    std::array<wchar_t, MAX_PATH + 1> name{};
    if (GetVolumeInformationW(toWide(root).c_str(), name.data(), static_cast<DWORD>(name.size()), nullptr, nullptr,
                              nullptr, nullptr, 0) == 0) {
        return std::nullopt;
    }
    return fromWide(name.data());
}

std::optional<DiskGeometry> Win32Volumes::geometry(std::u16string_view root) {
    const SilentErrors silent;
    DWORD sectors = 0;
    DWORD bytes = 0;
    DWORD freeClusters = 0;
    DWORD clusters = 0;
    if (GetDiskFreeSpaceW(toWide(root).c_str(), &sectors, &bytes, &freeClusters, &clusters) == 0) {
        return std::nullopt;
    }
    return DiskGeometry{sectors, bytes, clusters};
}
