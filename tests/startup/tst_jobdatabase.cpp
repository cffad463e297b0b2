#include "clock/JobLists.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "startup/Module1.h"
#include "support/ProgramFolder.h"

#include <QDir>
#include <QTest>

namespace {

const QString jobsFile = QStringLiteral("Jobs.mdb");

struct Copy
{
    explicit Copy(const ProgramFolder &folder, bool network = false)
    {
        identity.AppFolder = folder.Path();
        identity.OnNetworkDrive = network;
        identity.UserInitials = QStringLiteral("ANNA");
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
    void TakesTheConfiguredFile();
    void FallsBackToAFreshLocalCopy();
    void CountsTheOwnFileOnANetworkDriveAsShared();
    void KnowsTheOwnFileByAnySpelling();
    void LeavesAForeignFileUntouched();
    void DeletesAJobAndFillsTheListAnew();
    void ChoosesThePersonalFileOnALocalDrive();
    void ChoosesThePersonalFileOnANetworkDrive();
};

void TestJobDatabase::TakesTheConfiguredFile()
{
    const ProgramFolder folder;
    const ProgramFolder share;
    share.Copy(QStringLiteral("Blank Jobs.mdb"), QStringLiteral("company.mdb"));
    Copy copy(folder);
    copy.jobs.Choose(share.File(QStringLiteral("company.mdb")));
    QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.CompanyJobs && !copy.jobs.LocalJobs);
    QVERIFY(!folder.Has(jobsFile));
    copy.jobs.AddSelfToUsers();
    copy.jobs.Set_In();
    copy.jobs.Close(std::chrono::seconds(1));
    QCOMPARE(share.Sql(QStringLiteral("company.mdb"), QStringLiteral("SELECT User, State FROM Users")),
             QList<QVariantList>({{QStringLiteral("ANNA"), -1}}));
}

void TestJobDatabase::FallsBackToAFreshLocalCopy()
{
    const ProgramFolder folder;
    Copy copy(folder);
    copy.jobs.Choose(QStringLiteral("/nowhere/company.mdb"));
    QVERIFY(!copy.jobs.EnterpriseOn && !copy.jobs.CompanyJobs && copy.jobs.LocalJobs);
    QCOMPARE(copy.jobs.CompanyPath, folder.File(jobsFile));
    copy.jobs.AddSelfToUsers();
    copy.jobs.Set_In(); // presence writes are skipped
    copy.jobs.Close(std::chrono::seconds(1));
    QCOMPARE(folder.Sql(jobsFile, QStringLiteral("SELECT User, State FROM Users")),
             QList<QVariantList>({{QStringLiteral("ANNA"), 0}}));
}

void TestJobDatabase::CountsTheOwnFileOnANetworkDriveAsShared()
{
    const ProgramFolder folder;
    Copy copy(folder, true);
    copy.jobs.Choose({});
    QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.CompanyJobs && !copy.jobs.LocalJobs);
}

void TestJobDatabase::KnowsTheOwnFileByAnySpelling()
{
    const ProgramFolder folder;
    folder.Copy(QStringLiteral("Blank Jobs.mdb"), jobsFile);
    Copy copy(folder);
    const QString spelling =
        folder.Path() + QStringLiteral("/../") + QDir(folder.Path()).dirName() + QStringLiteral("/Jobs.mdb");
    QVERIFY(copy.jobs.IsOwnJobsFile(spelling));
    copy.jobs.Choose(spelling);
    QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.LocalJobs && !copy.jobs.CompanyJobs);
}

void TestJobDatabase::LeavesAForeignFileUntouched()
{
    const ProgramFolder folder;
    const QByteArray content = QByteArray("a letter to the bank, not a database").repeated(200);
    folder.Write(QStringLiteral("letter.mdb"), content);
    Copy copy(folder);
    copy.jobs.Choose(folder.File(QStringLiteral("letter.mdb")));
    QVERIFY(!copy.jobs.EnterpriseOn && !copy.jobs.CompanyJobs && !copy.jobs.LocalJobs);
    copy.jobs.FillJobList();
    copy.jobs.Set_In();
    QFile letter(folder.File(QStringLiteral("letter.mdb")));
    QVERIFY(letter.open(QIODevice::ReadOnly));
    QCOMPARE(letter.readAll(), content);
}

void TestJobDatabase::DeletesAJobAndFillsTheListAnew()
{
    const ProgramFolder folder;
    folder.Copy(QStringLiteral("Blank Jobs.mdb"), jobsFile);
    folder.Sql(jobsFile, QStringLiteral("INSERT INTO Projects (JobID, JobName) VALUES ('B', 'Beta'), ('A', 'Alpha')"));
    Copy copy(folder);
    copy.jobs.Choose({});
    copy.jobs.FillJobList();
    QCOMPARE(copy.lists.CompanyList.Items(), QStringList({QStringLiteral("A : Alpha"), QStringLiteral("B : Beta")}));
    copy.jobs.DeleteJob(QStringLiteral("A : Alpha"));
    QCOMPARE(copy.lists.CompanyList.Items(), QStringList({QStringLiteral("B : Beta")}));
}

void TestJobDatabase::ChoosesThePersonalFileOnALocalDrive()
{
    const ProgramFolder folder;
    Copy copy(folder);
    const auto choose = [&] {
        return Module1::ChooseLocalDBPath(copy.identity, QStringLiteral("ANNA"), copy.jobs).path;
    };
    QCOMPARE(choose(), folder.File(QStringLiteral("ANNA Stemp.mdb")));
    folder.Copy(QStringLiteral("blank Stemp.mdb"), QStringLiteral("Stemp.mdb"));
    QCOMPARE(choose(), folder.File(QStringLiteral("Stemp.mdb")));
    folder.Copy(QStringLiteral("blank Stemp.mdb"), QStringLiteral("ANNA Stemp.mdb"));
    QCOMPARE(choose(), folder.File(QStringLiteral("ANNA Stemp.mdb")));
}

void TestJobDatabase::ChoosesThePersonalFileOnANetworkDrive()
{
    const ProgramFolder folder;
    Copy copy(folder, true);
    const auto choose = [&](const QString &login) {
        copy.identity.UserInitials = login;
        return Module1::ChooseLocalDBPath(copy.identity, login, copy.jobs).path;
    };
    QCOMPARE(choose(QStringLiteral("ANNA")), QString()); // nothing beside the program to match against
    folder.Copy(QStringLiteral("Blank Jobs.mdb"), jobsFile);
    folder.Sql(jobsFile, QStringLiteral("INSERT INTO Users (User, FullName) VALUES ('åh', 'anna'), ('ALL', 'bo')"));
    QCOMPARE(choose({}), QString());
    QCOMPARE(choose(QStringLiteral("ANNA")), folder.File(QStringLiteral("ÅH Stemp.mdb")));
    QCOMPARE(copy.identity.UserInitials, QStringLiteral("ÅH"));
    QCOMPARE(choose(QStringLiteral("CARL")), folder.File(QStringLiteral("CARL Stemp.mdb"))); // unknown: the login it is
    QCOMPARE(choose(QStringLiteral("BO")), QString());                                       // a name that can't serve
}

QTEST_GUILESS_MAIN(TestJobDatabase)
#include "tst_jobdatabase.moc"
