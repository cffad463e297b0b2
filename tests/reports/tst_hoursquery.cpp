#include "platform/dao/DateValue.h"
#include "reports/HoursQuery.h"
#include "reports/Summary.h"
#include "reports/SummaryTask.h"
#include "reports/TimeRows.h"
#include "support/ProgramFolder.h"

#include <QRandomGenerator>
#include <QSemaphore>
#include <QTest>

#include <chrono>
#include <map>
#include <memory>
#include <tuple>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString file = u"Blank.mdb"_s;
constexpr Rounding byQuarters = Rounding::Quarters;
const QString endless = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n"_s;

const std::map<Rounding, qint64> units{
    {Rounding::Quarters, 900}, {Rounding::HalfHours, 1800}, {Rounding::WholeHours, 3600}};

qint64 HalvesToEven(qint64 seconds, qint64 unit)
{
    const qint64 whole = seconds / unit;
    const qint64 rest = 2 * (seconds % unit);
    return whole + (rest > unit || (rest == unit && whole % 2 == 1) ? 1 : 0);
}

using Group = std::tuple<QDate, QString, QString>; // of a summary per job, without the date
using Seconds = std::map<Group, std::optional<qint64>>;

} // namespace

class TestHoursQuery : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<ProgramFolder>();
        timeDb_ = dao::Database::OpenDatabase(folder_->File(file));
        timeDb_.RegisterFunctions([] { return QDateTime(); });
    }

    void cleanup() { timeDb_.Close(); }

    void LastDayOfAMonth()
    {
        for (const auto &[year, month, expected] : {std::tuple(2100, 2, 29), {2023, 2, 28}, {2023, 13, 0}}) {
            int days = -1;
            LastOf(year, month, days);
            QCOMPARE(days, expected);
        }
    }

    // Random rows, with one more in every other group that brings it to a half; open rows; and a job with the same hours at the
    // same time of each day, the one that dates as doubles make too long most, which adds up to more than a half.
    void SumsAreExact()
    {
        QRandomGenerator random(96);
        QList<QDate> days;
        for (int i = 0; i < 30; ++i)
            days.append(QDate(1994, 1, 1).addDays(random.bounded(30'000)));
        for (int group = 0; group < 600; ++group) {
            const QDate day = days[random.bounded(days.size())];
            const QString job = u"J%1"_s.arg(random.bounded(20));
            for (int rows = random.bounded(60); rows >= 0; --rows)
                AddRow(job, day, random.bounded(86'398) + 1, random.bounded(7200));
            const qint64 sum = *perDay_[{day, job, job}];
            const qint64 unit = 900 << random.bounded(3);
            if (group % 2 == 0)
                AddRow(job, day, random.bounded(86'398) + 1, unit + unit / 2 - sum % unit);
            AddRow(u"J%1"_s.arg(random.bounded(40)), day, 3600, {});
        }
        for (int day = 0; day < 10'001; ++day)
            AddRow(u"always"_s, QDate(2000, 1, 1).addDays(day), 2, 450);
        Store();

        for (const auto &[rounding, unit] : units)
            for (const SummaryKind kind : {SummaryKind::PerJob, SummaryKind::PerDay})
                Compare(ReadSummary(timeDb_, kind, {1990, 1, 1}, {2079, 12, 31}, rounding), unit);
    }

    void Bounds()
    {
        QRandomGenerator random(23);
        QList<QDate> days;
        for (int i = 0; i < 300; ++i) {
            const QDate day = QDate(1990, 1, 2).addDays(3 * random.bounded(10'000));
            if (!days.contains(day))
                days.append(day);
        }
        for (const QDate &day : days) {
            for (const int in : {-1, 0, 86'399, 86'400}) // none of them counts
                AddRow(u"out"_s, day, in, 60);
            for (const int in : {86'398, 1})
                AddRow(u"in"_s, day, in, 60);
        }
        Store();
        for (const QDate &day : days) {
            const Summary summary = ReadSummary(timeDb_, SummaryKind::PerDay, day, day, byQuarters);
            QCOMPARE(summary.rows.size(), 1);
            QCOMPARE(summary.rows[0].jobID, u"in"_s);
            QCOMPARE(summary.rows[0].day, day);
            const QList<RawTimeRow> rows = ReadTimeRows(timeDb_, day, day);
            QCOMPARE(rows.size(), 2);
            QCOMPARE(rows[0].stempInTime, dao::WallTime(day, {0, 0, 1}));
            QCOMPARE(rows[1].stempOutTime, dao::WallTime(day, {23, 59, 58}).addSecs(60));
            QVERIFY(ReadSummary(timeDb_, SummaryKind::PerJob, day, day.addDays(-1), byQuarters).rows.isEmpty());
        }
        QVERIFY_THROWS_EXCEPTION(dao::Error, ReadSummary(timeDb_, SummaryKind::PerJob, days[0], days[0], Rounding(-1)));
    }

    // In a range over a new year, and in longer ones, whose days come more than once.
    void YearsOfDays()
    {
        const QList<QDate> days{{2019, 6, 30}, {2023, 2, 28}, {2023, 6, 30}, {2024, 2, 29},
                                {2024, 6, 29}, {2024, 6, 30}, {2028, 2, 29}}; // one is a year and a day
        for (const QDate &day : days)
            AddRow(u"J"_s, day, 3600, 60);
        Store();
        for (qsizetype first = 0; first < days.size(); ++first) {
            for (qsizetype last = first; last < days.size(); ++last) {
                QList<QDate> found;
                for (const SummaryRow &row :
                     ReadSummary(timeDb_, SummaryKind::PerDay, days[first], days[last], byQuarters).rows)
                    found.append(row.day);
                QCOMPARE(found, days.mid(first, last - first + 1));
            }
        }
    }

    // Two jobs of one day with names that no connection reads, beside one of a year later that it does.
    void LargeJobHidesNoOther()
    {
        const QDate day(2023, 6, 30);
        for (const QString &job : {u"A"_s, u"B"_s})
            AddRow(job, day, 3600, 60);
        AddRow(u"C"_s, day.addYears(2), 3600, 60);
        Store();
        timeDb_.ExecuteOnLarge(u"UPDATE Stemp SET JobName = JobID || hex(zeroblob(700000)) WHERE JobID <> 'C'"_s, {},
                               u"-"_s);
        for (const SummaryKind kind : {SummaryKind::PerJob, SummaryKind::PerDay}) {
            const Summary summary = ReadSummary(timeDb_, kind, day, day.addYears(2), byQuarters);
            QCOMPARE(summary.rows.size(), 3);
            QCOMPARE(summary.rows[0].jobName, u"(too large to be read)"_s);
            QCOMPARE(summary.rows[2].jobName, u"C"_s);
            QVERIFY(kind == SummaryKind::PerJob || summary.rows[2].day == day.addYears(2));
        }
        QCOMPARE(ReadTimeRows(timeDb_, day, day.addYears(2)).size(), 3);
    }

    void NewestReadOfATaskArrives()
    {
        AddRow(u"J"_s, {2024, 2, 29}, 3600, 60);
        Store();
        SummaryTask task(folder_->File(file));
        bool staleDone = false;
        task.Begin([](dao::Database &timeDb) { timeDb.Select(endless, {}, {}); },
                   [&](const auto &) { staleDone = true; });
        const auto summary = std::make_shared<Summary>();
        std::optional<dao::Error> error;
        task.Begin(
            [summary](dao::Database &timeDb) {
                *summary = ReadSummary(timeDb, SummaryKind::PerDay, {2024, 1, 1}, {2024, 12, 31}, byQuarters);
            },
            [&](const auto &failure) { error = failure; });
        QVERIFY(task.IsRunning());
        QTRY_VERIFY(!task.IsRunning());
        QVERIFY(!error && !staleDone);
        QCOMPARE(summary->rows.size(), 1);

        task.Begin([](dao::Database &timeDb) { timeDb.Execute(u"nonsense"_s, {}, {}); },
                   [&](const auto &failure) { error = failure; });
        QTRY_VERIFY(error);
        QVERIFY(!staleDone);
    }

    void DestroyingATaskStopsIt()
    {
        struct Sync
        {
            QSemaphore begun;
            QSemaphore goOn;
        };
        const QString locked = u"SELECT count(*) FROM Stemp"_s;
        for (const auto &[sql, hangs] : {std::pair(endless, false), {locked, false}, {locked, true}}) {
            const auto sync = std::make_shared<Sync>(); // the thread has it until it has closed its connection
            {
                SummaryTask task(folder_->File(file));
                task.Begin(
                    [sync, sql = sql](dao::Database &timeDb) {
                        timeDb.SetBusyWait(std::chrono::hours(1));
                        sync->begun.release();
                        sync->goOn.acquire();
                        timeDb.Select(sql, {}, {});
                    },
                    [](const auto &) { QFAIL("a result of a task that is gone"); });
                sync->begun.acquire();
                timeDb_.Execute(u"BEGIN EXCLUSIVE"_s, {}, {});
                if (!hangs) // else it does so outside of SQLite, which could be told to stop
                    sync->goOn.release();
            }
            if (hangs)
                sync->goOn.release();
            QTRY_COMPARE(sync.use_count(), 1);
            timeDb_.Execute(u"ROLLBACK"_s, {}, {});
        }
    }

private:
    // `in` in seconds of the day; an open row lasts nothing.
    void AddRow(const QString &job, const QDate &day, qint64 in, std::optional<qint64> lasts)
    {
        const QDateTime inTime = dao::WallTime(day, {0, 0}).addSecs(in);
        rows_.append({job, job, inTime, lasts ? QVariant(inTime.addSecs(*lasts)) : QVariant()});
        for (std::optional<qint64> *sum : {&perDay_[{day, job, job}], &perJob_[{QDate(), job, job}]})
            if (lasts)
                *sum = sum->value_or(0) + *lasts;
    }

    void Store()
    {
        dao::Transaction transaction(timeDb_, u"storing"_s);
        for (const QVariantList &row : std::exchange(rows_, {}))
            timeDb_.Insert(u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)"_s, row,
                           u"storing"_s);
        transaction.Commit();
    }

    void Compare(const Summary &summary, qint64 unit)
    {
        const Seconds &expected = summary.kind == SummaryKind::PerDay ? perDay_ : perJob_;
        QCOMPARE(summary.rows.size(), qsizetype(expected.size()));
        for (const SummaryRow &row : summary.rows) {
            const std::optional<qint64> seconds = expected.at({row.day, row.jobID, row.jobName});
            QCOMPARE(row.hours.has_value(), seconds.has_value());
            QVERIFY(std::abs(row.hours.value_or(0) * 3600 - double(seconds.value_or(0))) < 0.1);
            std::optional<double> rounded;
            if (seconds)
                rounded = double(HalvesToEven(*seconds, unit)) / double(3600 / unit);
            if (row.rounded != rounded)
                QFAIL(qPrintable(u"%1 s of %2 in units of %3 s"_s.arg(seconds.value_or(-1)).arg(row.jobID).arg(unit)));
        }
    }

    std::unique_ptr<ProgramFolder> folder_;
    dao::Database timeDb_;
    QList<QVariantList> rows_;
    Seconds perDay_;
    Seconds perJob_;
};

QTEST_GUILESS_MAIN(TestHoursQuery)
#include "tst_hoursquery.moc"
