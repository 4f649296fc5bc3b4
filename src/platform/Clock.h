// The current time, for the names of backups.
#pragma once

// Coordinated universal time in the Gregorian calendar.
struct UtcTime {
    int year = 1970;
    int month = 1;  // 1-based
    int day = 1;    // 1-based
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual UtcTime now() = 0;
};
