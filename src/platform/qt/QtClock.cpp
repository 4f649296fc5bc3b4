#include "platform/qt/QtClock.h"

#include <QDateTime>

UtcTime QtClock::now() {
    const QDateTime time = QDateTime::currentDateTimeUtc();
    return {time.date().year(), time.date().month(),  time.date().day(),
            time.time().hour(), time.time().minute(), time.time().second()};
}
