// The drive letters a to z.
#pragma once

#include "platform/Volumes.h"

class Win32Volumes : public Volumes {
public:
    std::vector<std::u16string> roots() override;
    bool isPresent(std::u16string_view root) override;
    std::optional<std::u16string> label(std::u16string_view root) override;
    std::optional<DiskGeometry> geometry(std::u16string_view root) override;
};
