#pragma once

#include <QDate>

// The ranges that one click sets. Weeks and months end with their last day, also when it is still to come.
enum class QuickRange { Today, ThisWeek, LastWeek, ThisMonth, LastMonth };

struct DateRange
{
    QDate from;
    QDate to;
};

DateRange RangeOf(QuickRange range, const QDate &today, Qt::DayOfWeek firstDayOfWeek);
