#include "clock/CompanyJobs.h"
#include "clock/JobItem.h"
#include "clock/JobLists.h"
#include "platform/dao/Database.h"
#include "support/ProgramFolder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestJobs : public QObject
{
    Q_OBJECT

private slots:
    void SplitsItems_data();
    void SplitsItems();
    void ListKeepsItemsExactly();
    void Search_data();
    void Search();
    void SearchAgreesWithComparingEachItem();
    void ReadsProjects();
    void DeletesACompanyJob_data();
    void DeletesACompanyJob();
};

void TestJobs::SplitsItems_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");

    QTest::newRow("as written") << JobItemText(u"12"_s, u"Roof"_s) << u"12"_s << u"Roof"_s;
    QTest::newRow("without blanks") << u"12:Roof"_s << u"12"_s << u"Roof"_s;
    QTest::newRow("at the first colon") << u"12 : Roof : north"_s << u"12"_s << u"Roof : north"_s;
    QTest::newRow("no name") << JobItemText(u"12"_s, QString()) << u"12"_s << QString();
    QTest::newRow("no colon, whole and untrimmed") << u" Lunch "_s << u" Lunch "_s << QString();
    QTest::newRow("colon first") << u": Roof"_s << u": Roof"_s << QString();
}

void TestJobs::SplitsItems()
{
    QFETCH(QString, item);
    const JobItem halves = SplitJobItem(item);
    QTEST(halves.id, "id");
    QTEST(halves.name, "name");
}

void TestJobs::ListKeepsItemsExactly()
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

void TestJobs::Search_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QList<int>>("found");

    QTest::newRow("everything") << QString() << QList<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("anywhere, any case") << u"ab"_s << QList<int>{0, 1};
    QTest::newRow("Danish small letter") << u"æblegrød"_s << QList<int>{2};
    QTest::newRow("Danish capital") << u"Å"_s << QList<int>{3};
    QTest::newRow("once for each item") << u"B"_s << QList<int>{0, 1, 2};
    QTest::newRow("not across two items") << u"blab"_s << QList<int>{};
    QTest::newRow("whole item") << u"1 : blå lab"_s << QList<int>{};
    QTest::newRow("added later") << u"later"_s << QList<int>{4};
    QTest::newRow("letter whose upper case is two") << u"ß"_s << QList<int>{5};
    QTest::newRow("behind that letter") << u"e 6"_s << QList<int>{5};
    QTest::newRow("longer than all texts") << QString(200, u'A') << QList<int>{};
}

void TestJobs::Search()
{
    JobList list;
    list.Assign({u"1 : Lab"_s, u"ABBA : b"_s, u"Æblegrød"_s, u"3 : gå"_s});
    list.Add(u"4 : Later"_s);
    list.Add(u"5 : Straße 6"_s);
    QFETCH(QString, search);
    QTEST(list.Matches(search), "found");
}

void TestJobs::SearchAgreesWithComparingEachItem()
{
    QRandomGenerator random(3);
    const auto text = [&random](int longest) {
        QString made;
        for (int length = random.bounded(longest + 1); length > 0; --length)
            made += u"aAbæÆÿ :"_s.at(random.bounded(8));
        return made;
    };
    for (int round = 0; round < 300; ++round) {
        QStringList items;
        for (int i = 0; i < 30; ++i)
            items.append(text(6));
        JobList list;
        list.Assign(items);
        const QString search = text(3);
        QList<int> found;
        for (int i = 0; i < items.size(); ++i) {
            if (items.at(i).toUpper().contains(search.toUpper()))
                found.append(i);
        }
        QCOMPARE(list.Matches(search), found);
    }
}

void TestJobs::ReadsProjects()
{
    const ProgramFolder folder;
    dao::Database jobs = dao::Database::OpenDatabase(folder.File(u"Blank Jobs.mdb"_s));
    QVERIFY(ReadProjects(jobs).isEmpty());
    jobs.Execute(u"INSERT INTO Projects (JobID, JobName) VALUES ('b', NULL), ('C', 'Cellar'), ('a', 'Attic')"_s, {},
                 {});
    QCOMPARE(ReadProjects(jobs), QStringList({u"a : Attic"_s, u"b : "_s, u"C : Cellar"_s}));
}

void TestJobs::DeletesACompanyJob_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("left");

    QTest::newRow("by its id") << u"12 A : another name"_s << u"12"_s;
    QTest::newRow("not what begins alike") << u"12 : Roof"_s << u"12 A"_s;
    QTest::newRow("unknown") << u"13 : Roof"_s << u"12,12 A"_s;
    QTest::newRow("no blank before the colon") << u"12: Roof"_s << u"12,12 A"_s;
    QTest::newRow("no id") << u" : Roof"_s << u"12,12 A"_s;
    QTest::newRow("nothing") << QString() << u"12,12 A"_s;
}

void TestJobs::DeletesACompanyJob()
{
    const ProgramFolder folder;
    dao::Database jobs = dao::Database::OpenDatabase(folder.File(u"Blank Jobs.mdb"_s));
    jobs.Execute(u"INSERT INTO Projects (JobID, JobName) VALUES ('12', 'Roof'), ('12 A', 'Roof')"_s, {}, {});
    QFETCH(QString, item);
    QFETCH(QString, left);
    QCOMPARE(CompanyJobs::DeleteJob(jobs, item), left != u"12,12 A"_s);
    QStringList ids;
    for (const QString &each : ReadProjects(jobs))
        ids.append(SplitJobItem(each).id);
    QCOMPARE(ids.join(u','), left);
}

QTEST_GUILESS_MAIN(TestJobs)
#include "tst_jobs.moc"
