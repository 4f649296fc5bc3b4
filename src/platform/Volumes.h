// The disks on which the receiver may be found.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct DiskGeometry {
    std::uint32_t sectorsPerCluster = 0;
    std::uint32_t bytesPerSector = 0;
    std::uint64_t totalClusters = 0;
};

class Volumes {
public:
    virtual ~Volumes() = default;
    // Roots in the order of the search, each with its trailing separator: a:\ to z:\ in lower case, or the mount points
    // in the order of their text.
    virtual std::vector<std::u16string> roots() = 0;
    // False if no volume has this root.
    virtual bool isPresent(std::u16string_view root) = 0;
    // The volume's label; nullopt when the volume cannot be queried (an empty card reader).
    virtual std::optional<std::u16string> label(std::u16string_view root) = 0;
    virtual std::optional<DiskGeometry> geometry(std::u16string_view root) = 0;
};
