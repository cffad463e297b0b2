#pragma once

#include "reports/Summary.h"

#include <QList>
#include <QLocale>
#include <QString>

// What the chart beside the summary shows.
struct HoursBar
{
    QString label; // a job's id, or a day, week or month
    QString tip;   // the same in full, with the hours
    double hours = 0;
    bool isRest = false; // the smallest jobs together
};

// At most `most` bars. Per job: one for each row, by its hours, the longest first and equal ones in the order of the rows; the
// smallest put together as one last bar. Per day: every day that lies between the first and the last with hours, in order; weeks as the locale
// begins them, months or years where those were too many. Jobs whose hours are 00.00 have no bar.
QList<HoursBar> BarsOf(const Summary &summary, int most, const QLocale &locale);
