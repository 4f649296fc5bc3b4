#include "platform/posix/PosixClock.h"

#include <ctime>

UtcTime PosixClock::now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm utc{};
    ::gmtime_r(&seconds, &utc);
    return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}
