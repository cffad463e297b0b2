#pragma once

#include "settings/Options.h"

#include <QDate>
#include <QString>

// The statements that sum the hours of the table "Stemp", as SQLite runs them once the date literals are translated. They
// need the functions CInt, Day, Month and Year on the connection.

// Two dates, split for the statements.
struct RepDates
{
    int FromYear = 0;
    int FromMonth = 0;
    int FromDay = 0;
    int ToYear = 0;
    int ToMonth = 0;
    int ToDay = 0;
};
RepDates SplitDates(const QDate &from, const QDate &to);

// The number of days of a month, 0 for a number that is no month. Leap years are those divisible by four, without exception.
void LastOf(int year, int month, int &days);

// What closes the rounded column: the units of a day, and the divisor that makes hours of them again.
QString RoundingFragment(Rounding rounding);

// "From … Where …": the rows of a range. The bounds are strict: a row counts that was stemped in after midnight of the first
// day and before 23:59:59 of the last one.
QString RowsInRange(const RepDates &dates);

// In front of a translated statement: it then takes jobs that are too large to be read for one that says so.
QString LargeJobsNamed();

// JobID, Hours, Rounded, JobName of each job.
QString HoursPerJob(const RepDates &dates, const QString &roundingFragment);

// Day, JobID, Hours, Rounded, JobName and the month, of each job and day, by date.
QString HoursPerDay(const RepDates &dates, const QString &roundingFragment);

// The year of each row of HoursPerDay, in the same order.
QString YearsPerDay(const RepDates &dates);
