#include "reports/HoursQuery.h"

#include "platform/system/Say.h"

#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

QString DateText(int year, int month, int day)
{
    return QString::number(month) % u'/' % QString::number(day) % u'/' % QString::number(year);
}

} // namespace

RepDates SplitDates(const QDate &from, const QDate &to)
{
    return {from.year(), from.month(), from.day(), to.year(), to.month(), to.day()};
}

void LastOf(int year, int month, int &days)
{
    switch (month) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
        days = 31;
        break;
    case 4:
    case 6:
    case 9:
    case 11:
        days = 30;
        break;
    case 2:
        days = year % 4 == 0 ? 29 : 28;
        break;
    default:
        days = 0;
    }
}

QString RoundingFragment(Rounding rounding)
{
    switch (rounding) {
    case Rounding::WholeHours:
        return u"24))/1"_s;
    case Rounding::HalfHours:
        return u"48))/2"_s;
    case Rounding::Quarters:
        return u"96))/4"_s;
    }
    return {};
}

QString RowsInRange(const RepDates &dates)
{
    return u"From Stemp Where (((Stemp.StempInTime) > #"_s % DateText(dates.FromYear, dates.FromMonth, dates.FromDay)
           % u"#) And ((Stemp.StempInTime) < #"_s % DateText(dates.ToYear, dates.ToMonth, dates.ToDay)
           % u" 23:59:59#))"_s;
}

namespace {

QString ByDay(const RepDates &dates)
{
    return RowsInRange(dates)
           % u" GROUP BY Stemp.JobID, Stemp.JobName, Year(Stemp.StempInTime), Month(Stemp.StempInTime), "_s
           % u"Day(Stemp.StempInTime)"_s
           % u" ORDER BY Year(Stemp.StempInTime), Month(Stemp.StempInTime), Day(Stemp.StempInTime)"_s;
}

} // namespace

QString LargeJobsNamed()
{
    const auto named = [](QStringView field) {
        return QString(u"CASE WHEN length("_s % field % u") > 100000 THEN '"_s % Say("(too large to be read)")
                       % u"' ELSE "_s % field % u" END"_s);
    };
    return u"WITH Stemp AS (SELECT Id, StempInTime, StempOutTime, "_s % named(u"JobID")
           % u" COLLATE NOCASE AS JobID, "_s % named(u"JobName") % u" AS JobName FROM main.Stemp) "_s;
}

QString HoursPerJob(const RepDates &dates, const QString &roundingFragment)
{
    return u"SELECT Stemp.JobID, Sum(([StempOutTime]-[StempInTime])*24) AS Hours, "_s
           % u"CInt(Sum(([StempOutTime]-[StempInTime])*"_s % roundingFragment % u" AS Rounded, Stemp.JobName "_s
           % RowsInRange(dates) % u" GROUP BY Stemp.JobID, Stemp.JobName"_s;
}

QString HoursPerDay(const RepDates &dates, const QString &roundingFragment)
{
    return u"SELECT Day(Stemp.StempInTime) AS Day, Stemp.JobID, "_s
           % u"Sum(([StempOutTime]-[StempInTime])*24) AS Hours, CInt(Sum(([StempOutTime]-[StempInTime])*"_s
           % roundingFragment % u" AS Rounded, Stemp.JobName, Month(Stemp.StempInTime)"_s % ByDay(dates);
}

QString YearsPerDay(const RepDates &dates)
{
    return u"SELECT Year(Stemp.StempInTime) "_s % ByDay(dates);
}
