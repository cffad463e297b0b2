#include "clock/JobLists.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "startup/Module1.h"
#include "support/ProgramFolder.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString jobsFile = u"Jobs.mdb"_s;

struct Copy
{
    explicit Copy(const ProgramFolder &folder, bool network = false)
    {
        identity.AppFolder = folder.Path();
        identity.OnNetworkDrive = network;
        identity.UserInitials = u"ANNA"_s;
    }

    Identity identity;
    JobLists lists;
    JobDatabase jobs{CompanyLink::Mode::Inline, identity, lists};
};

} // namespace

class TestJobDatabase : public QObject
{
    Q_OBJECT

private slots:
    void TakesTheConfiguredFile()
    {
        const ProgramFolder folder;
        const ProgramFolder share;
        share.Copy(u"Blank Jobs.mdb"_s, u"company.mdb"_s);
        Copy copy(folder);
        copy.jobs.Choose(share.File(u"company.mdb"_s));
        QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.CompanyJobs && !copy.jobs.LocalJobs);
        QVERIFY(!folder.Has(jobsFile));
        copy.jobs.Close(std::chrono::seconds(1));
    }

    void FallsBackToAFreshLocalCopy()
    {
        const ProgramFolder folder;
        Copy copy(folder);
        copy.jobs.Choose(u"/nowhere/company.mdb"_s);
        QVERIFY(!copy.jobs.EnterpriseOn && !copy.jobs.CompanyJobs && copy.jobs.LocalJobs);
        QCOMPARE(copy.jobs.CompanyPath, folder.File(jobsFile));
        copy.jobs.AddSelfToUsers();
        copy.jobs.Set_In(); // presence writes are skipped
        copy.jobs.Close(std::chrono::seconds(1));
        QCOMPARE(folder.Sql(jobsFile, u"SELECT User, State FROM Users"_s), QList<QVariantList>({{u"ANNA"_s, 0}}));
    }

    void CountsTheOwnFileOnANetworkDriveAsShared()
    {
        const ProgramFolder folder;
        Copy copy(folder, true);
        copy.jobs.Choose({});
        QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.CompanyJobs && !copy.jobs.LocalJobs);
    }

    void KnowsTheOwnFileByAnySpelling()
    {
        const ProgramFolder folder;
        folder.Copy(u"Blank Jobs.mdb"_s, jobsFile);
        const QString link = folder.File(u"link.mdb"_s);
        QVERIFY(QFile::link(folder.File(jobsFile), link));
        for (const QString &spelling : {QString(folder.Path() + u"/./Jobs.mdb"_s), link}) {
            Copy copy(folder);
            QVERIFY(copy.jobs.IsOwnJobsFile(spelling));
            QVERIFY(!copy.jobs.IsOwnJobsFile(folder.File(u"Blank Jobs.mdb"_s)));
            copy.jobs.Choose(spelling);
            QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.LocalJobs && !copy.jobs.CompanyJobs);
        }
    }

    void AnotherFileBeginsWithAnEmptyList()
    {
        const ProgramFolder folder;
        Copy copy(folder);
        copy.jobs.Choose({});
        folder.Sql(jobsFile, u"INSERT INTO Projects (JobID, JobName) VALUES ('A', 'Alpha')"_s);
        copy.jobs.FillJobList();
        copy.jobs.Choose({});
        QCOMPARE(copy.lists.CompanyList.Items().size(), 1);
        copy.jobs.Choose(folder.File(u"Blank Jobs.mdb"_s));
        QVERIFY(copy.lists.CompanyList.IsEmpty());
    }

    void ChoosesThePersonalFileOnALocalDrive()
    {
        const ProgramFolder folder;
        Copy copy(folder);
        for (const QString &name : {u"ANNA Stemp.mdb"_s, u"Stemp.mdb"_s, u"ANNA Stemp.mdb"_s}) {
            QCOMPARE(Module1::ChooseLocalDBPath(copy.identity, u"ANNA"_s, copy.jobs).path, folder.File(name));
            folder.Copy(u"blank Stemp.mdb"_s, folder.Has(u"Stemp.mdb"_s) ? u"ANNA Stemp.mdb"_s : u"Stemp.mdb"_s);
        }
    }

    void ChoosesThePersonalFileOnANetworkDrive()
    {
        const ProgramFolder folder;
        Copy copy(folder, true);
        const auto choose = [&](const QString &login) {
            copy.identity.UserInitials = login;
            return Module1::ChooseLocalDBPath(copy.identity, login, copy.jobs).path;
        };
        QCOMPARE(choose(u"ANNA"_s), QString()); // nothing beside the program to match against
        folder.Copy(u"Blank Jobs.mdb"_s, jobsFile);
        folder.Sql(jobsFile, u"INSERT INTO Users (User, FullName) VALUES ('åh', 'anna'), ('ALL', 'bo')"_s);
        QCOMPARE(choose({}), QString());
        QCOMPARE(choose(u"ANNA"_s), folder.File(u"ÅH Stemp.mdb"_s));
        QCOMPARE(copy.identity.UserInitials, u"ÅH"_s);
        QCOMPARE(choose(u"CARL"_s), folder.File(u"CARL Stemp.mdb"_s)); // unknown: the login it is
        QCOMPARE(choose(u"BO"_s), QString());                          // a name that can't serve
    }
};

QTEST_GUILESS_MAIN(TestJobDatabase)
#include "tst_jobdatabase.moc"
