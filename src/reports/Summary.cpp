#include "reports/Summary.h"

#include "platform/dao/Database.h"
#include "platform/dao/DateLiterals.h"
#include "reports/HoursQuery.h"

#include <QSqlQuery>

#include <cmath>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace {

std::optional<double> Number(const QVariant &field)
{
    return field.isNull() ? std::nullopt : std::optional(field.toDouble());
}

double Total(const QList<SummaryRow> &rows, std::optional<double> SummaryRow::*column)
{
    return std::accumulate(
        rows.begin(), rows.end(), 0.0,
        [column](double total, const SummaryRow &row) { return total + (row.*column).value_or(0); });
}

QString Translated(const QString &statement, bool namesLargeJobs)
{
    return (namesLargeJobs ? LargeJobsNamed() : QString()) + dao::TranslateDateLiterals(statement);
}

void ReadPerJob(dao::Database &timeDb, Summary &summary, const RepDates &dates, const QString &roundingFragment)
{
    enum { JobID, Hours, Rounded, JobName };
    const QString purpose = u"summing hours per job"_s;
    timeDb.OnLarge(purpose, [&](bool again) {
        summary.rows.clear();
        timeDb.ForEach(Translated(HoursPerJob(dates, roundingFragment), again), {}, purpose, [&](const QSqlQuery &row) {
            summary.rows.append({{},
                                 row.value(JobID).toString(),
                                 row.value(JobName).toString(),
                                 Number(row.value(Hours)),
                                 Number(row.value(Rounded))});
        });
    });
}

// The year of a day and month in a range of a year or less, where each comes but once.
QDate DayInRange(const QDate &from, int month, int day)
{
    const QDate date(from.year(), month, day);
    return date.isValid() && date >= from ? date : QDate(from.year() + 1, month, day);
}

void ReadPerDay(dao::Database &timeDb, Summary &summary, const RepDates &dates, const QString &roundingFragment)
{
    enum { Day, JobID, Hours, Rounded, JobName, Month };
    const QString purpose = u"summing hours per job and day"_s;
    const bool needsYears = summary.to >= summary.from.addYears(1);
    timeDb.OnLarge(purpose, [&](bool again) {
        summary.rows.clear();
        QList<QVariantList> years;
        timeDb.ForEach(Translated(HoursPerDay(dates, roundingFragment), again), {}, purpose, [&](const QSqlQuery &row) {
            // Asked while the other statement is under way, so that both see the file in the same state.
            if (needsYears && years.isEmpty())
                years = timeDb.Select(Translated(YearsPerDay(dates), again), {}, purpose);
            const int month = row.value(Month).toInt();
            const int day = row.value(Day).toInt();
            summary.rows.append({needsYears ? QDate(years.value(summary.rows.size()).value(0).toInt(), month, day)
                                            : DayInRange(summary.from, month, day),
                                 row.value(JobID).toString(), row.value(JobName).toString(), Number(row.value(Hours)),
                                 Number(row.value(Rounded))});
        });
    });
}

} // namespace

double Summary::TotalHours() const
{
    return Total(rows, &SummaryRow::hours);
}

double Summary::TotalRounded() const
{
    return Total(rows, &SummaryRow::rounded);
}

double ExactHours(double hours)
{
    constexpr double secondsPerHour = 3600;
    constexpr double mostError = 0.05; // of a sum of some 100,000 rows, in seconds
    const double seconds = hours * secondsPerHour;
    const double whole = std::round(seconds) + 0.0; // never -0
    return std::abs(seconds - whole) < mostError ? whole / secondsPerHour : hours;
}

Summary ReadSummary(dao::Database &timeDb, SummaryKind kind, const QDate &from, const QDate &to, Rounding rounding)
{
    Summary summary{kind, from, to, rounding, {}};
    const QString roundingFragment = RoundingFragment(rounding);
    const RepDates dates = SplitDates(from, to);
    switch (kind) {
    case SummaryKind::None:
        break;
    case SummaryKind::PerJob:
        ReadPerJob(timeDb, summary, dates, roundingFragment);
        break;
    case SummaryKind::PerDay:
        ReadPerDay(timeDb, summary, dates, roundingFragment);
        break;
    }
    return summary;
}
