#pragma once

#include "platform/dao/DateValue.h"
#include "platform/system/TimeSource.h"

// A clock that stands still until a test moves it.
class SettableTime : public TimeSource
{
public:
    QDateTime now = dao::WallTime(QDate(2026, 3, 2), QTime(9, 0));

    QDateTime Now() const override { return now; }
    void Advance(int seconds) { now = now.addSecs(seconds); }
};
