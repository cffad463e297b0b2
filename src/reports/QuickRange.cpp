#include "reports/QuickRange.h"

namespace {

constexpr int daysOfWeek = 7;

DateRange WeekOf(const QDate &day, Qt::DayOfWeek firstDayOfWeek)
{
    const QDate first = day.addDays(-((day.dayOfWeek() - firstDayOfWeek + daysOfWeek) % daysOfWeek));
    return {first, first.addDays(daysOfWeek - 1)};
}

DateRange MonthOf(const QDate &day)
{
    return {QDate(day.year(), day.month(), 1), QDate(day.year(), day.month(), day.daysInMonth())};
}

} // namespace

DateRange RangeOf(QuickRange range, const QDate &today, Qt::DayOfWeek firstDayOfWeek)
{
    switch (range) {
    case QuickRange::ThisWeek:
        return WeekOf(today, firstDayOfWeek);
    case QuickRange::LastWeek:
        return WeekOf(today.addDays(-daysOfWeek), firstDayOfWeek);
    case QuickRange::ThisMonth:
        return MonthOf(today);
    case QuickRange::LastMonth:
        return MonthOf(today.addMonths(-1));
    case QuickRange::Today:
        break;
    }
    return {today, today};
}
