#include "clock/CreateJob.h"
#include "clock/JobItem.h"
#include "clock/JobLists.h"
#include "clock/Projects.h"
#include "platform/dao/Database.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "support/AtWindow.h"
#include "support/ProgramFolder.h"

#include <QListWidget>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString used = u"This Job ID is already used"_s;

// The window on the screen, above the program folder's own list, in which "AB" stands.
struct Creator : AtWindow
{
    explicit Creator(CompanyLink::Mode mode = CompanyLink::Mode::Inline) : jobs(mode, identity, lists)
    {
        folder.MakeJobs(jobsFile, {u"AB"_s});
        identity.AppFolder = folder.Path();
        jobs.Choose({});
        jobs.FillJobList();
        Open(form);
    }
    ~Creator() { jobs.Close(std::chrono::seconds(5)); }

    void Type(const QString &id, const QString &name) const
    {
        Box("JobIDText")->setText(id);
        Box("JobNameText")->setText(name);
    }
    QString Typed() const { return Box("JobIDText")->text() + u'|' + Box("JobNameText")->text(); }
    QString Stored() const // what the window shows as stored
    {
        QStringList jobItems;
        const auto *ids = Find<QListWidget>("List1");
        for (int i = 0; i < ids->count(); ++i)
            jobItems.append(JobItemText(ids->item(i)->text(), Find<QListWidget>("List2")->item(i)->text()));
        return jobItems.join(u'|');
    }
    bool IsReady() const // for the next id, without a click
    {
        return form.focusWidget() == Box("JobIDText") && Box("JobIDText")->selectedText() == Box("JobIDText")->text()
               && Find<QPushButton>("ApplyButton")->isEnabled() && !Box("JobIDText")->isReadOnly();
    }

    Identity identity;
    JobLists lists;
    JobDatabase jobs;
    CreateJob form{texts, prompts, jobs, lists};
};

} // namespace

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
        for (const QString &item : {u"a : A"_s, u"a : a"_s, u"a : a"_s, u"a : A "_s})
            list.Add(item);
        QCOMPARE(list.Items(), QStringList({u"b : B"_s, u"a : A"_s, u"b : B"_s, u"a : a"_s, u"a : A "_s}));
        list.Assign({u"c : C"_s});
        QVERIFY(!list.Contains(u"a : A"_s) && list.Contains(u"c : C"_s));
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

    void StoresOneAfterAnother()
    {
        const Creator creator;
        const QString roof = u"12 A B : Roof : north "_s + QString(255 - 13, u'N'); // the box stops there
        creator.Type(u" 12:A\tB "_s, u"Roof : north\n"_s + QString(300, u'N'));
        creator.Press("ApplyButton");
        QCOMPARE(creator.Typed(), u"|"_s);
        QVERIFY(creator.IsReady());
        creator.Type(u"41"_s, u"  "_s);
        creator.Press("ApplyButton");
        QCOMPARE(creator.Typed(), u"42|"_s);
        QVERIFY(creator.IsReady() && creator.prompts.messages.isEmpty());
        QCOMPARE(creator.Stored(), roof + u"|41 : 41"_s);
        QCOMPARE(creator.lists.CompanyList.Items(), QStringList({roof, u"41 : 41"_s, u"AB : x"_s}));
        QTest::keyClick(creator.Box("JobIDText"), Qt::Key_Return);
        QVERIFY(!creator.form.IsLoaded());
        QVERIFY(creator.lists.CompanyList.Contains(u"42 : 42"_s));
    }

    void RefusesAnID()
    {
        for (const auto &[id, message] : {std::pair(u" : "_s, u"Job ID must be filled in"_s),
                                          {u"ab"_s, used},
                                          {u"øb"_s, used}}) { // by another copy meanwhile
            const Creator creator;
            creator.folder.Sql(jobsFile, u"INSERT INTO Projects (JobID) VALUES ('ØB')"_s);
            creator.Type(id, u"Roof"_s);
            creator.Press("OKButton");
            QCOMPARE(creator.prompts.messages.join(u'|'), message);
            QCOMPARE(creator.Typed(), Projects::CleanID(id) + u"|Roof"_s);
            QVERIFY(creator.form.isVisible() && creator.IsReady());
            QCOMPARE(creator.Stored(), QString());
            QCOMPARE(creator.lists.CompanyList.Contains(u"ØB : "_s), id == u"øb"_s); // loaded again
        }
    }

    void SaysWhenItCouldNotStore()
    {
        const Creator creator;
        creator.folder.Sql(jobsFile, u"ALTER TABLE Projects RENAME TO Away"_s);
        creator.Type(u"7"_s, u"Roof"_s);
        creator.Press("OKButton");
        QVERIFY(!creator.Text("StatusLabel").isEmpty());
        QCOMPARE(creator.Typed(), u"7|Roof"_s);
        QVERIFY(creator.form.isVisible() && creator.IsReady() && creator.prompts.messages.isEmpty());
        creator.folder.Sql(jobsFile, u"ALTER TABLE Away RENAME TO Projects"_s);
        creator.Press("ApplyButton");
        QCOMPARE(creator.Text("StatusLabel"), QString());
        QCOMPARE(creator.Stored(), u"7 : Roof"_s);
    }

    void WaitsForTheFile()
    {
        for (const bool leaves : {false, true}) {
            const Creator creator(CompanyLink::Mode::Thread);
            QTRY_COMPARE(creator.lists.CompanyList.Count(), 1);
            Holder other(creator.folder.File(jobsFile));
            creator.Type(u"7"_s, u"Roof"_s);
            creator.Press("OKButton");
            QTest::keyClick(creator.form.focusWidget(), Qt::Key_Return); // a second time: nothing
            QVERIFY(creator.form.isVisible() && !creator.Find<QPushButton>("ApplyButton")->isEnabled());
            if (leaves)
                QTest::keyClick(creator.form.focusWidget(), Qt::Key_Escape);
            other.LetGo();
            QCOMPARE(creator.form.IsLoaded(), !leaves);
            QTRY_VERIFY(!creator.form.IsLoaded() && creator.lists.CompanyList.Contains(u"7 : Roof"_s));
        }
    }

    void AnotherFileEndsTheWait()
    {
        Creator creator(CompanyLink::Mode::Thread);
        creator.folder.MakeJobs(u"other.mdb"_s);
        const Holder other(creator.folder.File(jobsFile));
        creator.Type(u"7"_s, u"Roof"_s);
        creator.Press("OKButton");
        creator.jobs.Choose(creator.folder.File(u"other.mdb"_s));
        QTRY_VERIFY(creator.IsReady() && !creator.Text("StatusLabel").isEmpty());
        QCOMPARE(creator.Typed(), u"7|Roof"_s);
    }
};

QTEST_MAIN(TestJobs)
#include "tst_jobs.moc"
