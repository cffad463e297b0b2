#include "clock/CreateJob.h"
#include "clock/JobLists.h"
#include "platform/dao/Database.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "support/AnsweredPrompts.h"
#include "support/NoTexts.h"
#include "support/ProgramFolder.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString jobsFile = u"Jobs.mdb"_s;
const QString used = u"This Job ID is already used"_s;

// The window on the screen, above the program folder's own list, in which "AB" stands.
struct Creator
{
    explicit Creator(CompanyLink::Mode mode = CompanyLink::Mode::Inline) : jobs(mode, identity, lists)
    {
        folder.Copy(u"Blank Jobs.mdb"_s, jobsFile);
        folder.Sql(jobsFile, u"INSERT INTO Projects (JobID, JobName) VALUES ('AB', 'Attic')"_s);
        identity.AppFolder = folder.Path();
        jobs.Choose({});
        jobs.FillJobList();
        form.Load();
        form.show();
    }
    ~Creator() { jobs.Close(std::chrono::seconds(5)); }

    template <class T> T *Find(const char *name) const { return form.findChild<T *>(QLatin1String(name)); }
    QLineEdit *Box(const char *name) const { return Find<QLineEdit>(name); }
    void Press(const char *button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
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

    ProgramFolder folder;
    Identity identity;
    JobLists lists;
    JobDatabase jobs;
    AnsweredPrompts prompts;
    NoTexts texts;
    CreateJob form{texts, prompts, jobs, lists};
};

} // namespace

class TestCreateJob : public QObject
{
    Q_OBJECT

private slots:
    void StoresOneAfterAnother()
    {
        const Creator creator;
        creator.Type(u" 12:A "_s, u"Roof : north"_s);
        creator.Press("ApplyButton");
        QCOMPARE(creator.Typed(), u"|"_s);
        QVERIFY(creator.IsReady());
        creator.Type(u"41"_s, u"  "_s);
        creator.Press("ApplyButton");
        QCOMPARE(creator.Typed(), u"42|"_s);
        QVERIFY(creator.IsReady() && creator.prompts.messages.isEmpty());
        QCOMPARE(creator.Stored(), u"12 A : Roof : north|41 : 41"_s);
        QCOMPARE(creator.lists.CompanyList.Items(),
                 QStringList({u"12 A : Roof : north"_s, u"41 : 41"_s, u"AB : Attic"_s}));
        QTest::keyClick(creator.Box("JobIDText"), Qt::Key_Return);
        QVERIFY(!creator.form.IsLoaded());
        QVERIFY(creator.lists.CompanyList.Contains(u"42 : 42"_s));
    }

    void RefusesAnID_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("message");
        QTest::newRow("none") << u" : "_s << u"Job ID must be filled in"_s;
        QTest::newRow("listed") << u"ab"_s << used;
        QTest::newRow("by another copy meanwhile") << u"øb"_s << used;
    }
    void RefusesAnID()
    {
        QFETCH(QString, id);
        const Creator creator;
        creator.folder.Sql(jobsFile, u"INSERT INTO Projects (JobID) VALUES ('ØB')"_s);
        creator.Type(id, u"Roof"_s);
        creator.Press("OKButton");
        QTEST(creator.prompts.messages.join(u'|'), "message");
        QCOMPARE(creator.Typed(), Projects::CleanID(id) + u"|Roof"_s);
        QVERIFY(creator.form.isVisible() && creator.IsReady());
        QCOMPARE(creator.Stored(), QString());
        QCOMPARE(creator.lists.CompanyList.Contains(u"ØB : "_s), id == u"øb"_s); // loaded again
    }

    void SaysWhenItCouldNotStore()
    {
        const Creator creator;
        creator.folder.Sql(jobsFile, u"ALTER TABLE Projects RENAME TO Away"_s);
        creator.Type(u"7"_s, u"Roof"_s);
        creator.Press("OKButton");
        QVERIFY(!creator.Find<QLabel>("StatusLabel")->text().isEmpty());
        QCOMPARE(creator.Typed(), u"7|Roof"_s);
        QVERIFY(creator.form.isVisible() && creator.IsReady() && creator.prompts.messages.isEmpty());
        creator.folder.Sql(jobsFile, u"ALTER TABLE Away RENAME TO Projects"_s);
        creator.Press("ApplyButton");
        QCOMPARE(creator.Find<QLabel>("StatusLabel")->text(), QString());
        QCOMPARE(creator.Stored(), u"7 : Roof"_s);
    }

    void WaitsForTheFile()
    {
        for (const bool leaves : {false, true}) {
            const Creator creator(CompanyLink::Mode::Thread);
            QTRY_COMPARE(creator.lists.CompanyList.Count(), 1);
            dao::Database other = dao::Database::OpenDatabase(creator.folder.File(jobsFile));
            other.Execute(u"BEGIN EXCLUSIVE"_s, {}, {});
            creator.Type(u"7"_s, u"Roof"_s);
            creator.Press("OKButton");
            QTest::keyClick(creator.form.focusWidget(), Qt::Key_Return); // a second time: nothing
            QVERIFY(creator.form.isVisible() && !creator.Find<QPushButton>("ApplyButton")->isEnabled());
            if (leaves)
                QTest::keyClick(creator.form.focusWidget(), Qt::Key_Escape);
            other.Close();
            QCOMPARE(creator.form.IsLoaded(), !leaves);
            QTRY_VERIFY(!creator.form.IsLoaded() && creator.lists.CompanyList.Contains(u"7 : Roof"_s));
        }
    }

    void AnotherFileEndsTheWait()
    {
        Creator creator(CompanyLink::Mode::Thread);
        creator.folder.Copy(u"Blank Jobs.mdb"_s, u"other.mdb"_s);
        dao::Database holder = dao::Database::OpenDatabase(creator.folder.File(jobsFile));
        holder.Execute(u"BEGIN EXCLUSIVE"_s, {}, {});
        creator.Type(u"7"_s, u"Roof"_s);
        creator.Press("OKButton");
        creator.jobs.Choose(creator.folder.File(u"other.mdb"_s));
        QVERIFY(creator.IsReady() && !creator.Find<QLabel>("StatusLabel")->text().isEmpty());
        QCOMPARE(creator.Typed(), u"7|Roof"_s);
    }
};

QTEST_MAIN(TestCreateJob)
#include "tst_createjob.moc"
