#include "clock/JobItem.h"
#include "clock/JobLists.h"
#include "clock/Projects.h"
#include "platform/dao/Database.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestJobs : public QObject
{
    Q_OBJECT

private slots:
    void SplitsItems()
    {
        const auto halves = [](const QString &item) -> QString {
            return SplitJobItem(item).id + u'|' + SplitJobItem(item).name;
        };
        QCOMPARE(halves(JobItemText(u"12"_s, u"Roof : north"_s)), u"12|Roof : north"_s);
        QCOMPARE(halves(u"12:Roof"_s), u"12|Roof"_s);
        QCOMPARE(halves(u" Lunch "_s), u" Lunch |"_s); // no half to trim
        QCOMPARE(halves(u": Roof"_s), u": Roof|"_s);
    }

    void ListKeepsItemsExactly()
    {
        JobList list;
        list.Assign({u"b : B"_s, u"a : A"_s, u"b : B"_s}); // as read, whatever stands there
        QVERIFY(!list.Add(u"a : A"_s));
        QVERIFY(list.Add(u"a : a"_s));
        QVERIFY(!list.Add(u"a : a"_s));
        QVERIFY(list.Add(u"a : A "_s));
        QCOMPARE(list.Items(), QStringList({u"b : B"_s, u"a : A"_s, u"b : B"_s, u"a : a"_s, u"a : A "_s}));

        list.Assign({u"c : C"_s});
        QVERIFY(!list.Contains(u"a : A"_s));
        QVERIFY(list.Contains(u"c : C"_s));
        QCOMPARE(list.Matches(u"a"_s), QList<int>());
    }

    void Search()
    {
        JobList list;
        list.Assign({u"1 : Lab"_s, u"ABBA : b"_s, u"Æblegrød"_s, u"3 : gå"_s});
        list.Add(u"4 : Later"_s);
        list.Add(u"5 : Straße 6"_s);
        QCOMPARE(list.Matches(QString()), QList<int>({0, 1, 2, 3, 4, 5}));
        QCOMPARE(list.Matches(u"ab"_s), QList<int>({0, 1}));
        QCOMPARE(list.Matches(u"B"_s), QList<int>({0, 1, 2}));                       // once for each item
        for (const QString &none : {u"bab"_s, u"1 : blå lab"_s, QString(200, u'A')}) // not across two items
            QCOMPARE(list.Matches(none), QList<int>());
        const QMap<QString, int> one{{u"æblegrød"_s, 2}, {u"Å"_s, 3}, {u"later"_s, 4}, {u"ß"_s, 5}, {u"e 6"_s, 5}};
        for (const QString &search : one.keys())
            QCOMPARE(list.Matches(search), QList<int>({one[search]}));
    }

    void ReadsAndDeletesCompanyJobs()
    {
        const ProgramFolder folder;
        dao::Database jobs = dao::Database::OpenDatabase(folder.File(u"Blank Jobs.mdb"_s));
        jobs.Execute(u"INSERT INTO Projects (JobID, JobName) VALUES ('b', NULL), ('C', 'Cellar'), ('a', 'Attic'), "
                     "('12', 'Roof'), ('12 A', 'Roof')"_s,
                     {}, {});
        for (const QString &item : {u"13 : Roof"_s, u"12: Roof"_s, u"12"_s, u" : Roof"_s, QString()})
            QVERIFY2(!Projects::DeleteJob(jobs, item), qPrintable(item));
        QVERIFY(Projects::DeleteJob(jobs, u"12 A : another name"_s));
        QCOMPARE(ReadProjects(jobs), QStringList({u"12 : Roof"_s, u"a : Attic"_s, u"b : "_s, u"C : Cellar"_s}));
    }

    void KnowsIDs()
    {
        JobList list;
        list.Assign({u"AB : Lab"_s, u"Ø : x"_s});
        QVERIFY(Projects::IsListed(list, u"ab"_s) && Projects::IsListed(list, u"ø"_s));
        QVERIFY(!Projects::IsListed(list, u"A"_s) && !Projects::IsListed(list, u"B"_s));

        const QMap<QString, QString> next{{u"0041"_s, u"42"_s}, {u"9223372036854775806"_s, u"9223372036854775807"_s}};
        for (const QString &id : next.keys())
            QCOMPARE(Projects::NextID(id), next[id]);
        for (const QString &id : {u"0"_s, u"X1"_s, u"1.5"_s, u"1,000"_s, u"1e3"_s, u"9223372036854775807"_s, QString()})
            QCOMPARE(Projects::NextID(id), QString());
    }
};

QTEST_GUILESS_MAIN(TestJobs)
#include "tst_jobs.moc"
