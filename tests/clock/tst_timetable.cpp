#include "clock/TimeTable.h"

#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QFile>
#include <QTest>

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

} // namespace

class TestTimeTable : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        table_.reset();
        folder_ = std::make_unique<ProgramFolder>();
        time_ = SettableTime(); // 2 March 2026, 09:00
        table_ = std::make_unique<TimeTable>(time_);
        table_->Open(folder_->File(file));
    }

    void WritesThatFailAndSucceedAgain_data()
    {
        QTest::addColumn<QStringList>("obstacle");
        QTest::addColumn<QString>("removal");

        QTest::newRow("locked by a backup") << QStringList{u"BEGIN EXCLUSIVE"_s} << u"ROLLBACK"_s;
        QTest::newRow("read by another: only the commit fails")
            << QStringList{u"BEGIN"_s, u"SELECT count(*) FROM Stemp"_s} << u"COMMIT"_s;
        QTest::newRow("another failure") << QStringList{u"ALTER TABLE Stemp RENAME TO Away"_s}
                                         << u"ALTER TABLE Away RENAME TO Stemp"_s;
    }

    void WritesThatFailAndSucceedAgain()
    {
        QFETCH(QStringList, obstacle);
        QFETCH(QString, removal);
        const TimeRowPtr first = table_->Add(u"1"_s, u"Roof"_s, time_.now);
        QVERIFY(table_->Flush());

        dao::Database other = dao::Database::OpenDatabase(folder_->File(file));
        for (const QString &statement : obstacle)
            other.Execute(statement, {}, {});
        table_->Complete(first, time_.now.addSecs(60));
        const TimeRowPtr second = table_->Add(u"2"_s, u"Cellar"_s, time_.now.addSecs(60));
        QVERIFY(!table_->Flush());
        QVERIFY(!table_->Flush());
        table_->Complete(second, time_.now.addSecs(120));
        QCOMPARE(table_->UnsavedCount(), 2);
        QCOMPARE(second->id, 0);

        other.Execute(removal, {}, {});
        QVERIFY(table_->Flush());
        QCOMPARE(table_->UnsavedCount(), 0);
        other.Close();
        QCOMPARE(Stored(), QStringList({u"1 Roof 02 09:00:00 02 09:01:00"_s, u"2 Cellar 02 09:01:00 02 09:02:00"_s}));
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
        QCOMPARE(folder_->Sql(file, u"SELECT typeof(StempInTime) FROM Stemp"_s), QList<QVariantList>({{u"real"_s}}));

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
    QStringList Stored() // what another connection sees
    {
        TimeTable other(time_);
        other.Open(folder_->File(file));
        return Texts(other.Rows(RollBackQuery(30'000)));
    }
    void Sql(const QString &statement) { folder_->Sql(file, statement); }

    std::unique_ptr<ProgramFolder> folder_;
    SettableTime time_;
    std::unique_ptr<TimeTable> table_;
};

QTEST_GUILESS_MAIN(TestTimeTable)
#include "tst_timetable.moc"
