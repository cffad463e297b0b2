// Stemping in, until the row is durable, beside one raw insert and commit into a table of the same size on the same disk.

#include "bench/ProgramFolder.h"
#include "bench/Work.h"
#include "clock/Clock.h"
#include "clock/JobLists.h"
#include "platform/system/TimeSource.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <benchmark/benchmark.h>

#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int personalJobs = 5000;

QString NextItem()
{
    static int number = 0;
    number = (number + 1) % personalJobs;
    return JobItemText(JobIdOf(number), JobNameOf(number));
}

QString TimeFileCopy(const QString &name)
{
    const QDir dir(BenchFolder() + u"/stemp"_s);
    const QString path = dir.filePath(name);
    if (!QFile::exists(path)) {
        MakeProgramFolder(dir.path(), {25000, personalJobs, 0});
        QFile::copy(dir.filePath(BenchSystem().LoginName() + u".mdb"_s), path);
    }
    return path;
}

struct RunningClock
{
    TimeSource time;
    TimeTable table{time};
    JobLists lists;
    Clock clock{table, lists, time, [](const JobItem &) { qFatal("the job is in the personal list"); }};

    RunningClock()
    {
        table.Open({TimeFileCopy(u"clock.mdb"_s)});
        QStringList items;
        for (int i = 0; i < personalJobs; ++i)
            items.append(JobItemText(JobIdOf(i), JobNameOf(i)));
        lists.PersonalList.Assign(items);
        lists.Mode = ListMode::Company;
        clock.TakeUpLastRow();
        clock.StempIn(NextItem(), {});
    }

    void StempIn(benchmark::State &state)
    {
        const QString item = NextItem();
        const Stopwatch stopwatch;
        clock.StempIn(item, {});
        state.SetIterationTime(stopwatch.Seconds());
        if (table.UnsavedCount() > 0)
            state.SkipWithError("the row was not stored");
    }
};

RunningClock &TheClock()
{
    static RunningClock clock;
    return clock;
}

void OutToIn(benchmark::State &state)
{
    for (auto _ : state) {
        TheClock().clock.StempOut();
        TheClock().StempIn(state);
    }
}

void InToIn(benchmark::State &state)
{
    for (auto _ : state)
        TheClock().StempIn(state);
}

void RawInsert(benchmark::State &state)
{
    static sqlite3 *database = nullptr;
    static sqlite3_stmt *insert = nullptr;
    if (!database) {
        sqlite3_open(TimeFileCopy(u"raw.mdb"_s).toUtf8().constData(), &database);
        sqlite3_exec(database, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(database, "INSERT INTO Stemp (JobID, JobName, StempInTime) VALUES (?, ?, ?)", -1, &insert,
                           nullptr);
    }
    for (auto _ : state) {
        const QByteArray item = NextItem().toUtf8();
        const Stopwatch stopwatch;
        sqlite3_bind_text(insert, 1, item.constData(), 11, SQLITE_STATIC);
        sqlite3_bind_text(insert, 2, item.constData() + 14, -1, SQLITE_STATIC);
        sqlite3_bind_double(insert, 3, 45000);
        const bool stored = sqlite3_step(insert) == SQLITE_DONE && sqlite3_reset(insert) == SQLITE_OK;
        state.SetIterationTime(stopwatch.Seconds());
        if (!stored)
            state.SkipWithError(sqlite3_errmsg(database));
    }
}

void Rounds(benchmark::internal::Benchmark *measured)
{
    measured->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(101);
}

BENCHMARK(RawInsert)->Apply(Rounds);
BENCHMARK(OutToIn)->Apply(Rounds);
BENCHMARK(InToIn)->Apply(Rounds);

} // namespace

void AddStempFigures(Figures &figures, const Medians &medians)
{
    const double floor = medians.Milliseconds("RawInsert");
    figures.AddRatio(u"stemp in, from out, to durable row"_s, floor, medians.Milliseconds("OutToIn"), u"ms"_s, 1.3);
    figures.AddRatio(u"stemp in, from in, to durable rows"_s, floor, medians.Milliseconds("InToIn"), u"ms"_s, 1.3);
}
