#include "clock/Clock.h"

#include "clock/JobLists.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// One running copy's clock on the time database of a folder.
struct Copy
{
    Copy(const ProgramFolder &folder, const TimeSource &time)
        : table(time), clock(table, lists, time, [this](auto &job) { stored.append(job.id + u'|' + job.name); })
    {
        table.Open(folder.File(u"Blank.mdb"_s));
    }

    TimeTable table;
    JobLists lists;
    QStringList stored; // the jobs added to the personal table
    Clock clock;
};

} // namespace

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
        folder_->Sql(u"Blank.mdb"_s,
                     u"CREATE TRIGGER Full BEFORE INSERT ON Stemp BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        time_.Advance(60);
        QVERIFY(clock.StempIn(u"2 : Cellar"_s, QString()));
        QCOMPARE(Rows(), u"1 0-"_s);
        QCOMPARE(copy_->table.UnsavedCount(), 2);

        folder_->Sql(u"Blank.mdb"_s, u"DROP TRIGGER Full"_s);
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

private:
    // All rows as "job in-out", in minutes after nine.
    QString Rows() const
    {
        QStringList texts;
        const QString minutes = u"round((StempInTime - 46083.375) * 1440), round((StempOutTime - 46083.375) * 1440)"_s;
        const auto rows = folder_->Sql(u"Blank.mdb"_s, u"SELECT JobID, "_s + minutes + u" FROM Stemp ORDER BY Id"_s);
        for (const QVariantList &row : rows)
            texts.append(row.at(0).toString() + u' ' + row.at(1).toString() + u'-' + row.at(2).toString());
        return texts.join(u", "_s);
    }

    std::unique_ptr<ProgramFolder> folder_;
    SettableTime time_;
    std::unique_ptr<Copy> copy_;
};

QTEST_GUILESS_MAIN(TestClock)
#include "tst_clock.moc"
