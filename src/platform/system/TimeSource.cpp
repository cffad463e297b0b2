#include "platform/system/TimeSource.h"

QDateTime TimeSource::Now() const
{
    const QDateTime now = QDateTime::currentDateTime();
    const QTime time = now.time();
    return {now.date(), QTime(time.hour(), time.minute(), time.second()), Qt::UTC};
}
