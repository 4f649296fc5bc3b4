// The system's clock.
#pragma once

#include "platform/Clock.h"

class PosixClock : public Clock {
public:
    UtcTime now() override;
};
