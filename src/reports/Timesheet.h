#pragma once

#include "reports/Summary.h"

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

// A summary as a timesheet: the text for the clipboard, and the cells for paper.

// Hours with at least two digits before the decimal point and two after it, in every locale; halves of a hundredth away from
// zero. 00.00 for no hours.
QString HoursText(const std::optional<double> &hours);

// The locale's own short dates, but with all digits of the year.
QString DateFormat(const QLocale &locale);

// Hours for the screen, as the locale writes them: with two decimals, or with three where two would round.
QString ExactHoursText(double hours, const QLocale &locale);

// Header, rows and totals, lines ended by CR LF, fields separated by one tab. Empty for a summary of no kind.
QString ClipboardText(const Summary &summary, const QString &user, const QLocale &locale);

// The same on paper. Every row and the totals have as many cells as `alignRight` has entries: day (per day only), job, hours,
// rounded hours, description.
struct PrintedTimesheet
{
    QStringList header; // the person, the first and the last date
    QList<QStringList> rows;
    QStringList totals;
    QList<bool> alignRight; // of the columns
    QString foot;           // how the hours were rounded, for below the timesheet itself
};
PrintedTimesheet TimesheetToPrint(const Summary &summary, const QString &user, const QLocale &locale);
