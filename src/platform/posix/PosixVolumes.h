// Mounted volumes of a system without drive letters. Network and pseudo file systems are not accessed, since a server
// that does not answer would block the window.
#pragma once

#include <string>
#include <vector>

#include "platform/Volumes.h"

class PosixVolumes : public Volumes {
public:
    // mountTable: a file in the format of /proc/self/mountinfo.
    explicit PosixVolumes(std::string mountTable = "/proc/self/mountinfo") : mountTable_(std::move(mountTable)) {}

    std::vector<std::u16string> roots() override;
    bool isPresent(std::u16string_view root) override;
    std::optional<std::u16string> label(std::u16string_view root) override;
    std::optional<DiskGeometry> geometry(std::u16string_view root) override;

private:
    std::string mountTable_;
};
