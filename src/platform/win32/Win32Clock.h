// The system's clock.
#pragma once

#include "platform/Clock.h"

class Win32Clock : public Clock {
public:
    UtcTime now() override;
};
