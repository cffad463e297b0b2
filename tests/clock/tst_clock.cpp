#include "clock/Clock.h"
#include "clock/JobLists.h"
#include "clock/TimeTable.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr bool openFilesCanBeRenamed = false;
#else
constexpr bool openFilesCanBeRenamed = true;
#endif

const QString file = u"Blank.mdb"_s;

QString Text(const TimeRow &row)
{
    const auto time = [](const std::optional<QDateTime> &each) {
        return each ? each->toString(u"dd HH:mm:ss"_s) : u"-"_s;
    };
    return row.jobID + u' ' + row.jobName + u' ' + time(row.stempInTime) + u' ' + time(row.stempOutTime);
}

QStringList Texts(const QList<TimeRow> &rows)
{
    QStringList texts;
    for (const TimeRow &row : rows)
        texts.append(Text(row));
    return texts;
}

// One running copy's clock on the time database of a folder.
struct Copy
{
    Copy(const TimeFile &opened, const TimeSource &time)
        : table(time), clock(table, lists, time, [this](auto &job) { stored.append(job.id + u'|' + job.name); })
    {
        table.Open(opened);
    }
    Copy(const ProgramFolder &folder, const TimeSource &time) : Copy({folder.File(file)}, time) {}

    TimeTable table;
    JobLists lists;
    QStringList stored; // the jobs added to the personal table
    Clock clock;
};

int statementsLeft = 0; // 0: the process lives

// The copy of a process of its own: ends an open row and begins a new one, or dies just before a statement.
int RunCopy(const QStringList &arguments)
{
    statementsLeft = arguments.value(5).toInt();
    dao::SetStatementHook([] {
        if (--statementsLeft == 0)
            std::_Exit(EXIT_FAILURE); // nothing is unwound
    });
    dao::Held held = dao::Database::OpenHeld(arguments.value(3), {});
    const SettableTime time;
    Copy copy({arguments.value(2), u"ANNA"_s, &held.database}, time);
    if (copy.clock.TakeUpLastRow())
        copy.clock.StempOut();
    copy.clock.StempIn(arguments.value(4), {});
    return EXIT_SUCCESS;
}

} // namespace

// One running copy's clock, and the rows that it leaves in the time database.
class TestClock : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        copy_.reset();
        folder_ = std::make_unique<ProgramFolder>();
        time_ = SettableTime(); // 2 March 2026, 09:00
        copy_ = std::make_unique<Copy>(*folder_, time_);
        table_ = &copy_->table;
    }

    void InOutAndInAgain()
    {
        Clock &clock = copy_->clock;
        QVERIFY(clock.StempIn(u"1 : Roof"_s, u"ro"_s));
        QVERIFY(clock.state.IsStempedIn);
        QCOMPARE(Rows(), u"1 0-"_s);

        time_.Advance(5 * 60);
        clock.StempOut();
        QVERIFY(!clock.state.IsStempedIn);
        QCOMPARE(clock.state.CurrentJob, u"1 : Roof"_s);

        time_.Advance(60);
        clock.StempOut(); // once more: nothing is open
        clock.StempIn(u"1 : Roof"_s, QString());
        clock.StempOutAt(time_.now.addSecs(-120)); // before the in-time: stored as told
        QCOMPARE(Rows(), u"1 0-5, 1 6-4"_s);
        QVERIFY(!clock.state.LastInTime);
    }

    void InToInIsOneTransaction()
    {
        Clock &clock = copy_->clock;
        clock.StempIn(u"1 : Roof"_s, QString());
        folder_->Sql(file, u"CREATE UNIQUE INDEX Full ON Stemp (length(JobID))"_s);
        time_.Advance(60);
        QVERIFY(clock.StempIn(u"2 : Cellar"_s, QString()));
        QCOMPARE(Rows(), u"1 0-"_s);
        QCOMPARE(table_->UnsavedCount(), 2);

        folder_->Sql(file, u"DROP INDEX Full"_s);
        time_.Advance(60);
        clock.StempIn(u"3 : Attic"_s, QString());
        QCOMPARE(Rows(), u"1 0-1, 2 1-2, 3 2-"_s);
    }

    void UnusableItem()
    {
        Clock &clock = copy_->clock;
        copy_->lists.Mode = ListMode::Company;
        for (const QString &item : {QString(), u"ro"_s}) {
            QVERIFY(clock.StempIn(u"1 : Roof"_s, u"ro"_s));
            QVERIFY(!clock.StempIn(item, u"ro"_s)); // out
            QVERIFY(!clock.StempIn(item, u"ro"_s)); // and nothing more
            QVERIFY(!clock.state.IsStempedIn);
            QCOMPARE(clock.state.CurrentJob, u"1 : Roof"_s);
        }
        QCOMPARE(Rows(), u"1 0-0, 1 0-0"_s);
        QCOMPARE(copy_->lists.PersonalList.Count(), 1);
    }

    void PickingKeepsTheLists()
    {
        const QStringList one = {u"1 : Roof"_s};
        const QStringList both = {u"1 : Roof"_s, u"2 : Cellar"_s};
        for (const ListMode mode : {ListMode::None, ListMode::Recent, ListMode::Personal, ListMode::Company}) {
            init();
            JobLists &lists = copy_->lists;
            lists.RecentList.Assign(one);
            lists.PersonalList.Assign(one);
            lists.Mode = mode;
            for (const QString &item : both + both)
                copy_->clock.StempIn(item, QString());
            QCOMPARE(lists.RecentList.Items(), mode == ListMode::None || mode == ListMode::Recent ? one : both);
            QCOMPARE(lists.PersonalList.Items(), mode == ListMode::None || mode == ListMode::Personal ? one : both);
            QCOMPARE(copy_->stored, lists.PersonalList.Count() > 1 ? QStringList{u"2|Cellar"_s} : QStringList());

            copy_->clock.StempIn(u"3:Attic"_s, QString()); // as typed; its row reads otherwise
            copy_->clock.StempOut();
            QCOMPARE(copy_->clock.state.CurrentJob, u"3 : Attic"_s);
            QVERIFY(lists.RecentList.Contains(u"3 : Attic"_s));
        }
    }

    void TakesUpTheLastRow()
    {
        Clock &clock = copy_->clock;
        clock.state.CurrentJob = u"of the recent list's walk"_s;
        QVERIFY(!clock.TakeUpLastRow());
        QCOMPARE(clock.state.CurrentJob, QString());

        clock.StempIn(u"1 : Roof"_s, QString());
        Copy next(*folder_, time_);
        time_.Advance(40 * 24 * 3600);
        QVERIFY(next.clock.TakeUpLastRow());    // of any age
        QVERIFY(!next.clock.state.IsStempedIn); // until the out-query has been answered
        QCOMPARE(next.clock.state.LastInTime, time_.now.addDays(-40));
        next.clock.StempOutAt(time_.now);
        next.clock.StempIn(u"2 : Cellar"_s, QString());
        QCOMPARE(next.clock.state.LastInTime, time_.now.addDays(-40)); // still the start's
        next.clock.StempOut();
        QCOMPARE(Rows(), u"1 0-57600, 2 57600-57600"_s);
    }

    void CompletesItsOwnRow_data()
    {
        QTest::addColumn<bool>("anotherPerson");
        QTest::addColumn<int>("minutes"); // that the clock moves before the second row
        QTest::addColumn<QString>("rows");
        QTest::newRow("clock set back an hour") << false << -60 << u"1 0--60, 2 -60--59"_s;
        QTest::newRow("two persons") << true << 5 << u"1 0-6, 2 5-"_s;
        QTest::newRow("two persons, two clocks") << true << -5 << u"1 0--4, 2 -5-"_s;
    }

    void CompletesItsOwnRow()
    {
        QFETCH(bool, anotherPerson);
        QFETCH(int, minutes);
        Copy other(*folder_, time_);
        copy_->clock.StempIn(u"1 : Roof"_s, QString());
        time_.Advance(minutes * 60);
        (anotherPerson ? other : *copy_).clock.StempIn(u"2 : Cellar"_s, QString());
        time_.Advance(60);
        copy_->clock.StempOut();
        QTEST(Rows(), "rows");
    }

    void WritesThatFailAndSucceedAgain()
    {
        for (const Holder::What held : {Holder::Everything, Holder::Reading}) { // reading: only the commit fails
            init();
            const TimeRowPtr first = table_->Add(u"1"_s, u"Roof"_s, time_.now);
            QVERIFY(table_->Flush());
            Holder backup(folder_->File(file), held);
            table_->Complete(first, time_.now.addSecs(60));
            const TimeRowPtr second = table_->Add(u"2"_s, u"Cellar"_s, time_.now.addSecs(60));
            QVERIFY(!table_->Flush());
            QVERIFY(!table_->Flush());
            table_->Complete(second, time_.now.addSecs(120));
            QCOMPARE(table_->UnsavedCount(), 2);
            QCOMPARE(second->id, 0);
            backup.LetGo();
            QVERIFY(table_->Flush());
            QCOMPARE(table_->UnsavedCount(), 0);
            QCOMPARE(Stored(),
                     QStringList({u"1 Roof 02 09:00:00 02 09:01:00"_s, u"2 Cellar 02 09:01:00 02 09:02:00"_s}));
        }
    }

    void ParksWhatTheFileDoesNotTake()
    {
        folder_->MakePersonal();
        Sql(u"INSERT INTO Stemp (JobID, StempInTime) VALUES ('0', 46083)"_s); // by another tool, without an id
        folder_->Sql(personalFile, u"DROP TABLE ParkedStemps"_s);             // as an earlier version made it
        dao::Database localDB = dao::Database::OpenDatabase(folder_->File(personalFile));
        const TimeFile annas{folder_->File(file), u"ANNA"_s, &localDB};
        Holder other(annas.path, Holder::Writing);
        {
            Copy first(annas, time_);
            QVERIFY(first.clock.TakeUpLastRow());
            first.clock.StempOut();
            QElapsedTimer waited;
            waited.start();
            first.clock.StempIn(u"1 : Roof"_s, {});
            QVERIFY(waited.elapsed() < 600); // 0.3 s; the rest is the machine's
            QVERIFY(first.table.IsAllKept());
            QCOMPARE(
                first.table.Notice().Text(),
                u"Not yet in \"Blank.mdb\", as another program has locked it: 2 stemps, kept in \"ANNA Stemp.mdb\" "
                "until then."_s);
        }
        for (const TimeFile &others :
             {TimeFile{annas.path, u"BO"_s, &localDB}, TimeFile{u"C.mdb"_s, u"ANNA"_s, &localDB}})
            QCOMPARE(Copy(others, time_).table.UnsavedCount(), 0);
        Copy next(annas, time_);
        QVERIFY(next.clock.TakeUpLastRow());
        QCOMPARE(next.clock.state.CurrentJob, u"1 : Roof"_s);
        QCOMPARE(Texts(next.table.Rows(RollBackQuery(7))),
                 QStringList({u"0  02 00:00:00 02 09:00:00"_s, u"1 Roof 02 09:00:00 -"_s}));
        localDB.Execute(u"CREATE UNIQUE INDEX Full ON ParkedStemps (StempOutTime IS NULL)"_s, {}, {});
        time_.Advance(60);
        next.clock.StempOut();
        QVERIFY(!next.table.IsAllKept());
        QVERIFY(next.table.Notice().Text().contains(u"1 stemp in memory only!"_s));
        other.LetGo();
        QVERIFY(next.table.Flush());
        QCOMPARE(Rows(), u"0 -540-0, 1 0-1"_s);
        QVERIFY(localDB.Texts(u"SELECT JobID FROM ParkedStemps"_s, {}).isEmpty());
    }

    void StoresEachRowOnceWhereverItDies_data()
    {
        QTest::addColumn<bool>("parking"); // else taking in
        QTest::newRow("parking") << true;
        QTest::newRow("taking in") << false;
    }

    void StoresEachRowOnceWhereverItDies()
    {
        QFETCH(bool, parking);
        const auto run = [this](const QString &job, int statement) {
            return QProcess::execute(QCoreApplication::applicationFilePath(),
                                     {u"--copy"_s, folder_->File(timeFile), folder_->File(personalFile), job,
                                      QString::number(statement)})
                   == EXIT_SUCCESS;
        };
        const QString older = u"older.mdb"_s; // made by an earlier version, which stored an open row; and full
        folder_->Copy(file, older);
        for (const QString &statement : {u"DROP INDEX StempId"_s, u"ALTER TABLE Stemp DROP COLUMN StempId"_s,
                                         u"INSERT INTO Stemp (JobID, StempInTime) VALUES ('0', 46083)"_s,
                                         u"CREATE UNIQUE INDEX Full ON Stemp (JobID IS NULL)"_s})
            folder_->Sql(older, statement);
        bool lived = false;
        for (int statement = 1; !lived; ++statement) {
            for (const QString &left : folder_->Names().filter(u"ANNA"_s))
                QFile::remove(folder_->File(left));
            folder_->MakePersonal();
            folder_->Copy(older, timeFile);
            lived = run(u"1"_s, parking ? statement : 0);
            const QString parked = u"SELECT JobID FROM ParkedStemps WHERE JobID > 0"_s;
            const QString stored = u"SELECT JobID FROM Stemp WHERE JobID > 0 ORDER BY JobID"_s;
            QString kept = u"0"_s; // what the file is to hold in the end
            if (!folder_->Rows(personalFile, parked).isEmpty())
                kept += u", 1"_s;
            folder_->Sql(timeFile, u"DROP INDEX Full"_s);
            lived = run(u"2"_s, parking ? 0 : statement) && lived;
            if (QString(folder_->Rows(timeFile, stored) + folder_->Rows(personalFile, parked)).contains(u'2'))
                kept += u", 2"_s;
            QVERIFY(run(u"3"_s, 0));
            QCOMPARE(folder_->Rows(timeFile, u"SELECT JobID FROM Stemp ORDER BY JobID"_s), kept + u", 3"_s);
            QCOMPARE(folder_->Rows(timeFile, u"SELECT JobID FROM Stemp WHERE StempOutTime IS NULL"_s), u"3"_s);
            QCOMPARE(folder_->Rows(personalFile, u"SELECT JobID FROM ParkedStemps"_s), QString());
        }
    }

    void FileComesBackAfterItWasAway()
    {
        if (!openFilesCanBeRenamed)
            QSKIP("an open file can be neither renamed nor removed here");
        const QString path = folder_->File(file);
        const QString away = path + u".away"_s;
        QVERIFY(QFile::rename(path, away));
        table_->Add(u"1"_s, u"Roof"_s, time_.now);
        QVERIFY(!table_->Flush());
        QVERIFY(!QFile::exists(path));
        QVERIFY(QFile::rename(away, path));
        QVERIFY(table_->Flush());
        QCOMPARE(Stored(), {u"1 Roof 02 09:00:00 -"_s});
        QCOMPARE(folder_->Rows(file, u"SELECT typeof(StempInTime) FROM Stemp"_s), u"real"_s);

        // Another file in its place, before the loss was noticed.
        QVERIFY(QFile::rename(path, away) && QFile::copy(away, path));
        table_->Add(u"2"_s, u"Cellar"_s, time_.now);
        QTRY_VERIFY(table_->Flush());
        QCOMPARE(Stored(), QStringList({u"1 Roof 02 09:00:00 -"_s, u"2 Cellar 02 09:00:00 -"_s}));
    }

    void RowsThatAnotherHasChanged()
    {
        const TimeRowPtr deleted = table_->Add(u"1"_s, u"Roof"_s, time_.now);
        const TimeRowPtr earlier = table_->Add(u"2"_s, u"Cellar"_s, time_.now);
        const TimeRowPtr renamed = table_->Add(u"3"_s, u"Attic"_s, time_.now);
        QVERIFY(table_->Flush());
        Sql(u"DELETE FROM Stemp WHERE JobID = '1'"_s);
        Sql(u"INSERT INTO Stemp (Id, JobID, JobName, StempInTime) VALUES (%1, '4', 'Yard', 46083.5)"_s.arg(
            deleted->id));
        Sql(u"UPDATE Stemp SET StempInTime = StempInTime - 0.125 WHERE JobID = '2'"_s);
        Sql(u"UPDATE Stemp SET JobID = '5' WHERE JobID = '3'"_s);
        for (const TimeRowPtr &row : {deleted, earlier, renamed})
            table_->Complete(row, time_.now.addSecs(60));
        QVERIFY(table_->Flush());
        QStringList stored = Stored();
        stored.sort();
        QCOMPARE(stored, QStringList({u"1 Roof 02 09:00:00 02 09:01:00"_s, u"2 Cellar 02 06:00:00 02 09:01:00"_s,
                                      u"4 Yard 02 12:00:00 -"_s, u"5 Attic 02 09:00:00 02 09:01:00"_s}));
    }

    void UnsavedChangesShow()
    {
        const TimeRowPtr old = table_->Add(u"0"_s, u"Old"_s, time_.now.addDays(-9));
        const TimeRowPtr row = table_->Add(u"1"_s, u"Roof"_s, time_.now.addDays(-1));
        table_->Add(u"3"_s, u"Stored"_s, time_.now.addDays(-2));
        QVERIFY(table_->Flush());
        table_->Complete(old, time_.now);
        table_->Complete(row, time_.now);
        table_->Add(u"2"_s, u"Cellar"_s, time_.now);
        const QStringList shown = {u"1 Roof 01 09:00:00 02 09:00:00"_s, u"3 Stored 28 09:00:00 -"_s,
                                   u"2 Cellar 02 09:00:00 -"_s};
        QCOMPARE(Texts(table_->Rows(RollBackQuery(7))), shown);

        Sql(u"ALTER TABLE Stemp RENAME TO Away"_s); // what was read last stays on the screen
        QCOMPARE(Texts(table_->Rows(RollBackQuery(7))), shown);
        QCOMPARE(table_->UnsavedCount(), 3);
    }

    void WindowAndOrder()
    {
        table_->Add(u"1"_s, u"Roof"_s, time_.now.addSecs(-84 * 3600)); // three days and a half
        table_->Add(u"2"_s, u"Cellar"_s, time_.now);
        table_->Add(u"3"_s, u"Attic"_s, time_.now.addSecs(-3600)); // the clock was set back
        QVERIFY(table_->Flush());
        const QStringList later = {u"2 Cellar 02 09:00:00 -"_s, u"3 Attic 02 08:00:00 -"_s};
        QCOMPARE(Texts(table_->Rows(RollBackQuery(3))), later);
        QCOMPARE(table_->Rows(RollBackQuery(4)).size(), 3);
        time_.Advance(12 * 3600 + 1);
        QCOMPARE(Texts(table_->Rows(RollBackQuery(4))), later);
    }

    void OpenOrLastRow()
    {
        const std::tuple<QString, qint64, bool> cases[] = {
            {u"(46000, 46001), (46002, 46003)"_s, 2, false},
            {u"(46000, 46001), (46002, NULL)"_s, 2, true},
            {u"(45600, NULL), (46002, 46003)"_s, 1, true},     // of a year ago
            {u"(46002.1, 46002.2), (46002, NULL)"_s, 2, true}, // the clock was set back
            {u"(46000, NULL), (46002, NULL), (46003, 46004)"_s, 2, true},
            {u"(46000, 46001), (NULL, NULL)"_s, 2, false}, // no in-time is not open
        };
        QVERIFY(!table_->OpenOrLastRow());
        for (const auto &[rows, id, open] : cases) {
            Sql(u"DELETE FROM Stemp"_s);
            Sql(u"INSERT INTO Stemp (StempInTime, StempOutTime) VALUES "_s + rows);
            const TimeRowPtr row = table_->OpenOrLastRow();
            QCOMPARE(row->id, id);
            QCOMPARE(row->IsOpen(), open);
        }
    }

private:
    // All rows as "job in-out", in minutes after nine.
    QString Rows() const
    {
        const QString minutes = u"CAST(round((%1 - 46083.375) * 1440) AS INTEGER)"_s;
        return folder_->Rows(file, u"SELECT JobID, "_s + minutes.arg(u"StempInTime"_s) + u" || '-' || ifnull("_s
                                       + minutes.arg(u"StempOutTime"_s) + u", '') FROM Stemp ORDER BY Id"_s);
    }

    QStringList Stored() // what another connection sees
    {
        TimeTable other(time_);
        other.Open({folder_->File(file)});
        return Texts(other.Rows(RollBackQuery(30'000)));
    }
    void Sql(const QString &statement) { folder_->Sql(file, statement); }

    std::unique_ptr<ProgramFolder> folder_;
    SettableTime time_;
    std::unique_ptr<Copy> copy_;
    TimeTable *table_ = nullptr; // its own
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == "--copy"_L1)
        return RunCopy(QCoreApplication::arguments());
    TestClock test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_clock.moc"
