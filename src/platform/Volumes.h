// The volumes on which the receiver is searched.
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
    // Roots in the order of the search, each with a trailing separator: a:\ to z:\ in lower case, or the mount points,
    // sorted.
    virtual std::vector<std::u16string> roots() = 0;
    // False if there is no volume with this root.
    virtual bool isPresent(std::u16string_view root) = 0;
    // nullopt if the volume cannot be queried, such as an empty card reader.
    virtual std::optional<std::u16string> label(std::u16string_view root) = 0;
    virtual std::optional<DiskGeometry> geometry(std::u16string_view root) = 0;
};
