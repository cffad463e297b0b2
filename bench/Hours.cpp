// hours FOLDER RUNS: both sums of hours over a year of a million rows, in turn with the same sums in the sqlite3 command on the
// same file.

#include "bench/Figures.h"
#include "bench/ProgramFolder.h"
#include "platform/dao/Database.h"
#include "reports/HoursQuery.h"
#include "reports/Summary.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rows = 1'000'000;
constexpr int jobs = 27; // 9,855 groups of job and day

QString MakeTimeFile(const QString &folder)
{
    MakeProgramFolder(folder, {});
    const QString file = QDir(folder).filePath(BenchSystem().LoginName() + u".mdb"_s);
    dao::Database database = dao::Database::OpenDatabase(file);
    dao::Transaction transaction(database, u"making data"_s);
    // From 1 January 2023 on, a row every half a minute, in whole seconds.
    database.Execute(u"WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ? - 1) "
                     "INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) "
                     "SELECT printf('K%06d-%d', job, 100 + job), 'Spare parts and repairs, customer ' || job, "
                     "44927 + seconds / 86400.0, 44927 + (seconds + 600 + i * 37 % 3000) / 86400.0 "
                     "FROM (SELECT i, i * 7919 % ? AS job, 60 + i * 63 / 2 AS seconds FROM n)"_s,
                     {rows, jobs}, u"a million rows"_s);
    transaction.Commit();
    return file;
}

template <class Work> double Milliseconds(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

void Sum(const QString &file, SummaryKind kind)
{
    dao::Database timeDb = dao::Database::OpenDatabase(file);
    timeDb.RegisterFunctions([] { return QDateTime(); });
    const Summary summary = ReadSummary(timeDb, kind, {2023, 1, 1}, {2023, 12, 31}, Rounding::Quarters);
    if (summary.rows.size() != (kind == SummaryKind::PerJob ? jobs : jobs * 365))
        throw std::runtime_error("the sums are not those of the data");
}

QString StatementOfCommand(SummaryKind kind)
{
    QString days;
    QString order;
    if (kind == SummaryKind::PerDay) {
        days = u"strftime('%Y', StempInTime + 2415018.5), strftime('%m', StempInTime + 2415018.5), "
               "strftime('%d', StempInTime + 2415018.5)"_s;
        order = u"ORDER BY "_s + days;
        days += u',';
    }
    return u"SELECT %1 JobID, sum((StempOutTime - StempInTime) * 24), round(sum((StempOutTime - StempInTime) * 96)) / "
           u"4, "
           "JobName FROM Stemp WHERE StempInTime > 44927 AND StempInTime < 45291 + 86399 / 86400.0 "
           "GROUP BY %1 JobID, JobName %2"_s.arg(days, order);
}

void SumByCommand(const QString &file, const QString &statement)
{
    QProcess sqlite3;
    sqlite3.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    sqlite3.setStandardOutputFile(QProcess::nullDevice());
    sqlite3.start(u"sqlite3"_s, {u"-readonly"_s, file, statement});
    if (!sqlite3.waitForFinished(-1) || sqlite3.exitCode() != 0)
        throw std::runtime_error("sqlite3 failed");
}

void Compare(Figures &figures, const QString &what, const QString &file, SummaryKind kind, int runs)
{
    const QString statement = StatementOfCommand(kind);
    std::vector<double> command;
    std::vector<double> program;
    for (int i = 0; i <= runs; ++i) {
        command.push_back(Milliseconds([&] { SumByCommand(file, statement); }));
        program.push_back(Milliseconds([&] { Sum(file, kind); }));
        if (i == 0) { // has warmed the disk's cache
            command.clear();
            program.clear();
        }
    }
    figures.AddRatio(what, Median(command), Median(program), u"ms"_s, 1.2);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: bench_hours FOLDER RUNS\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        const QString file = MakeTimeFile(arguments[1]);
        const int runs = arguments[2].toInt();
        Figures figures;
        Compare(figures, u"hours per job, a million rows"_s, file, SummaryKind::PerJob, runs);
        Compare(figures, u"hours per job and day, a million rows"_s, file, SummaryKind::PerDay, runs);
        return figures.OverLimit() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
