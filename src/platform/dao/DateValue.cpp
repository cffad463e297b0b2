#include "platform/dao/DateValue.h"

#include <cmath>
#include <limits>

namespace dao {

namespace {

const QDate dayZero{1899, 12, 30};
constexpr qint64 secondsPerDay = 86'400;
constexpr double msecsPerDay = 86'400'000;
constexpr double farthestDay = 4e6; // beyond the year 12,000: no date, and far within QDateTime's own limits

std::optional<qint64> Seconds(double days)
{
    if (!(std::abs(days) < farthestDay)) // also when it is no number
        return std::nullopt;
    return std::llround(days * secondsPerDay);
}

} // namespace

QDateTime WallTime(const QDate &date, const QTime &time)
{
    return {date, time, Qt::UTC};
}

double ToDays(const QDateTime &wallTime)
{
    if (!wallTime.isValid())
        return std::numeric_limits<double>::quiet_NaN(); // stored as a null
    return static_cast<double>(dayZero.daysTo(wallTime.date())) + wallTime.time().msecsSinceStartOfDay() / msecsPerDay;
}

QDateTime FromDays(double days)
{
    const std::optional<qint64> seconds = Seconds(days);
    return seconds ? WallTime(dayZero, QTime(0, 0)).addSecs(*seconds) : QDateTime();
}

QDate DateOf(double days)
{
    const std::optional<qint64> seconds = Seconds(days);
    if (!seconds)
        return {};
    const qint64 day = *seconds / secondsPerDay;
    return dayZero.addDays(*seconds < day * secondsPerDay ? day - 1 : day);
}

QVariant DateField(const std::optional<QDateTime> &wallTime)
{
    return wallTime && wallTime->isValid() ? QVariant(ToDays(*wallTime)) : QVariant();
}

std::optional<QDateTime> ReadDateField(const QVariant &field)
{
    switch (field.typeId()) {
    case QMetaType::Double:
    case QMetaType::LongLong:
    case QMetaType::Int:
        break;
    default:
        return std::nullopt;
    }
    const QDateTime wallTime = field.isNull() ? QDateTime() : FromDays(field.toDouble());
    return wallTime.isValid() ? std::optional(wallTime) : std::nullopt;
}

} // namespace dao
