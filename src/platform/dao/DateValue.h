#pragma once

#include <QDateTime>
#include <QVariant>

#include <optional>

// Dates as the databases store them: REAL days since 30 December 1899, wall-clock time, the time of day as fraction.
//
// In code a date is a QDateTime in Qt::UTC that carries wall-clock numbers: no zone arithmetic ever touches it, so 02:30 of
// the night in which that hour is skipped survives. Exact to the second.
namespace dao {

QDateTime WallTime(const QDate &date, const QTime &time);

double ToDays(const QDateTime &wallTime);
QDateTime FromDays(double days); // rounded to the nearest second
QDate DateOf(double days);       // that of FromDays, many times faster

QVariant DateField(const std::optional<QDateTime> &wallTime);  // a null for no date
std::optional<QDateTime> ReadDateField(const QVariant &field); // nothing for null, text or another non-number

} // namespace dao
