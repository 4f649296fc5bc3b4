#include "platform/posix/PosixClock.h"

#include <QDateTime>

UtcTime PosixClock::now() {
    const QDateTime time = QDateTime::currentDateTimeUtc();
    return {time.date().year(), time.date().month(),  time.date().day(),
            time.time().hour(), time.time().minute(), time.time().second()};
}
