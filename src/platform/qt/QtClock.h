// The system's clock.
#pragma once

#include "platform/Clock.h"

class QtClock : public Clock {
public:
    UtcTime now() override;
};
