#include "reports/ChartBars.h"

#include "platform/system/Say.h"
#include "reports/QuickRange.h"
#include "reports/Timesheet.h"

#include <QMap>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Tip(const QString &what, double hours, const QLocale &locale)
{
    return Say("%1: %2 hours").arg(what, ExactHoursText(hours, locale));
}

bool IsToBeSeen(double hours)
{
    return std::abs(hours) >= 0.005; // less is 00.00
}

QList<HoursBar> AllJobs(const QList<SummaryRow> &rows, const QLocale &locale)
{
    QList<HoursBar> bars;
    for (const SummaryRow &row : rows) {
        const double hours = ExactHours(row.hours.value_or(0)); // equal ones are equal then
        if (!IsToBeSeen(hours))
            continue;
        const QString job = (row.jobID.trimmed().isEmpty() ? row.jobName : row.jobID).simplified();
        const QString name = row.jobName.simplified();
        const QString inFull = job == name ? job : QString(job + u' ' + name).trimmed();
        bars.append({job, Tip(inFull, hours, locale), hours});
    }
    return bars;
}

QList<HoursBar> JobBars(const QList<SummaryRow> &rows, int most, const QLocale &locale)
{
    QList<HoursBar> bars = AllJobs(rows, locale);
    std::stable_sort(bars.begin(), bars.end(),
                     [](const HoursBar &one, const HoursBar &other) { return one.hours > other.hours; });
    if (bars.size() <= most)
        return bars;

    HoursBar others;
    others.isRest = most > 1;
    for (auto bar = bars.cbegin() + most - 1; bar != bars.cend(); ++bar)
        others.hours += bar->hours;
    others.label = (most > 1 ? Say("%1 others") : Say("%1 jobs")).arg(bars.size() - most + 1);
    others.tip = Tip(others.label, others.hours, locale);
    bars.resize(most - 1);
    bars.append(others);
    return bars;
}

// The calendar cut into equal pieces, which are numbered through.
struct Periods
{
    enum class Unit { Day, Week, Month, Years } unit = Unit::Day;
    int years = 1; // of a piece of years
    Qt::DayOfWeek firstDayOfWeek = Qt::Monday;

    qint64 NumberOf(const QDate &day) const
    {
        switch (unit) {
        case Unit::Week: // day 0 of the count is a Monday
            return (day.toJulianDay() + Qt::Monday - firstDayOfWeek) / 7;
        case Unit::Month:
            return day.year() * 12 + day.month() - 1;
        case Unit::Years:
            return day.year() / years;
        case Unit::Day:
            break;
        }
        return day.toJulianDay();
    }
    QDate Begin(qint64 number) const
    {
        const int small = static_cast<int>(number);
        switch (unit) {
        case Unit::Week:
            return QDate::fromJulianDay(number * 7 - Qt::Monday + firstDayOfWeek);
        case Unit::Month:
            return {small / 12, small % 12 + 1, 1};
        case Unit::Years:
            return {small * years, 1, 1};
        case Unit::Day:
            break;
        }
        return QDate::fromJulianDay(number);
    }
    qint64 Count(const DateRange &range) const { return NumberOf(range.to) - NumberOf(range.from) + 1; }
};

// The smallest ones of which there are at most `most`.
Periods PeriodsFor(const DateRange &range, int most, const QLocale &locale)
{
    Periods periods{Periods::Unit::Day, 1, locale.firstDayOfWeek()};
    for (const auto unit : {Periods::Unit::Day, Periods::Unit::Week, Periods::Unit::Month, Periods::Unit::Years}) {
        periods.unit = unit;
        if (periods.Count(range) <= most)
            return periods;
    }
    while (periods.Count(range) > most)
        ++periods.years;
    return periods;
}

// `all` is what the chart spans, `one` what the bar does.
QString PeriodLabel(Periods::Unit unit, const DateRange &one, const DateRange &all, const QLocale &locale)
{
    const bool oneYear = all.from.year() == all.to.year();
    const bool oneMonth = oneYear && all.from.month() == all.to.month();
    switch (unit) {
    case Periods::Unit::Month:
        return locale.toString(one.from, oneYear ? u"MMM"_s : u"MMM yyyy"_s);
    case Periods::Unit::Years:
        return one.from.year() == one.to.year()
                   ? QString::number(one.from.year())
                   : QString::number(one.from.year()) + u'–' + QString::number(one.to.year());
    case Periods::Unit::Week:
        return locale.toString(one.from, u"d MMM"_s);
    case Periods::Unit::Day:
        break;
    }
    const bool oneWeek = all.from.daysTo(all.to) < 7;
    return locale.toString(one.from, oneWeek ? u"ddd d"_s : oneMonth ? u"d"_s : u"d MMM"_s);
}

QString PeriodInFull(const DateRange &one, const QLocale &locale)
{
    return one.from == one.to
               ? locale.toString(one.from, QLocale::LongFormat)
               : locale.toString(one.from, DateFormat(locale)) + u" – "_s + locale.toString(one.to, DateFormat(locale));
}

QList<HoursBar> DayBars(const Summary &summary, int most, const QLocale &locale)
{
    QMap<QDate, double> hours;
    for (const SummaryRow &row : summary.rows)
        hours[row.day] += row.hours.value_or(0);
    hours.removeIf([](const auto &day) { return !IsToBeSeen(day.value()); });
    if (hours.isEmpty())
        return {};

    const DateRange all{hours.firstKey(), hours.lastKey()};
    const Periods periods = PeriodsFor(all, most, locale);
    const qint64 first = periods.NumberOf(all.from);
    QList<HoursBar> bars(periods.Count(all));
    for (auto day = hours.cbegin(); day != hours.cend(); ++day)
        bars[periods.NumberOf(day.key()) - first].hours += day.value();
    for (qsizetype i = 0; i < bars.size(); ++i) {
        const DateRange one{std::max(periods.Begin(first + i), summary.from),
                            std::min(periods.Begin(first + i + 1).addDays(-1), summary.to)};
        bars[i].label = PeriodLabel(periods.unit, one, all, locale);
        bars[i].tip = Tip(PeriodInFull(one, locale), bars[i].hours, locale);
    }
    return bars;
}

} // namespace

QList<HoursBar> BarsOf(const Summary &summary, int most, const QLocale &locale)
{
    if (most < 1)
        return {};
    switch (summary.kind) {
    case SummaryKind::PerJob:
        return JobBars(summary.rows, most, locale);
    case SummaryKind::PerDay:
        return DayBars(summary, most, locale);
    case SummaryKind::None:
        break;
    }
    return {};
}
