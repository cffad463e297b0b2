#pragma once

#include <QDateTime>

// The one clock. Nothing else asks the system for the time, so that a test can set it.
class TimeSource
{
public:
    virtual ~TimeSource() = default;

    // The present wall-clock time, to the second (cut, not rounded), as platform/dao/DateValue.h lays it down: in Qt::UTC,
    // with local numbers.
    virtual QDateTime Now() const;
};
