#include "clock/JobLists.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "startup/Module1.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <filesystem>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto plenty = 20s; // for what must come

// A program folder with a company file beside the program that lists one job.
struct WithCompany : ProgramFolder
{
    WithCompany() { MakeJobs(companyFile, {u"C1"_s}); }
    QString Company() const { return File(companyFile); }
};

// A second name for a file.
bool Link(const QString &file, const QString &name)
{
    std::error_code error;
    std::filesystem::create_hard_link(QFileInfo(file).filesystemFilePath(), QFileInfo(name).filesystemFilePath(),
                                      error);
    return !error;
}

struct Copy
{
    explicit Copy(const ProgramFolder &folder, bool network = false, CompanyLink::Mode mode = CompanyLink::Mode::Inline)
        : jobs(mode, identity, lists)
    {
        identity.AppFolder = folder.Path();
        identity.OnNetworkDrive = network;
        identity.UserInitials = u"ANNA"_s;
    }

    Identity identity;
    JobLists lists;
    JobDatabase jobs;
    QSignalSpy cameBack{&jobs, &JobDatabase::CameBack};
    QSignalSpy found{&jobs, &JobDatabase::Looked};

    void Poll() { jobs.Poll({identity.UserInitials, SettableTime().Now(), {}, {}}); }
    bool UsesLocalCopy() const { return !jobs.EnterpriseOn && !jobs.CompanyJobs && jobs.LocalJobs; }
    bool UsesCompany() const { return jobs.EnterpriseOn && jobs.CompanyJobs && !jobs.LocalJobs; }
};

} // namespace

class TestJobDatabase : public QObject
{
    Q_OBJECT

private slots:
    void TakesTheConfiguredFileOfAnyVersion()
    {
        const QStringList more{u"ALTER TABLE Users ADD COLUMN Phone TEXT DEFAULT '-'"_s,
                               u"CREATE TABLE Rooms (Room)"_s};
        const QStringList less{u"DROP TABLE Users"_s, u"CREATE TABLE Users (User TEXT)"_s};
        for (const QStringList &statements : {more, less}) {
            const WithCompany folder;
            for (const QString &statement : statements)
                folder.Sql(companyFile, statement);
            Copy copy(folder);
            copy.jobs.Choose(folder.Company());
            QVERIFY(copy.UsesCompany());
            QVERIFY(!folder.Has(jobsFile));
            QVERIFY(copy.jobs.RowsForLocalCopy(1s));
            copy.jobs.AddSelfToUsers();
            copy.jobs.Set_In({});
            copy.jobs.FillJobList();
            QCOMPARE(copy.lists.CompanyList.Items(), QStringList(u"C1 : x"_s));
            QVERIFY(copy.jobs.Close(1s));
            QCOMPARE(folder.Rows(companyFile, u"SELECT User, State FROM Users"_s), u"ANNA -1"_s);
        }
    }

    void FallsBackToTheLocalCopyAndLooksForTheFile()
    {
        const QByteArray noDatabase = QByteArray("Dear diary, ").repeated(1000);
        const QByteArray withoutUsers = ProgramFolder().Content(u"Blank.mdb"_s);
        for (const QByteArray &content : {QByteArray(), noDatabase, withoutUsers}) { // at first: missing
            const ProgramFolder folder;
            const QString company = folder.File(companyFile);
            if (!content.isEmpty())
                folder.Write(companyFile, content);
            Copy copy(folder);
            copy.jobs.Choose(company);
            QVERIFY(copy.UsesLocalCopy());
            QCOMPARE(copy.jobs.CompanyPath, folder.File(jobsFile));
            copy.jobs.AddSelfToUsers();
            copy.jobs.Set_In({}); // presence writes are skipped
            copy.jobs.LookForConfigured();
            QVERIFY(copy.found.isEmpty() && copy.jobs.LooksForConfigured());
            QCOMPARE(folder.Content(companyFile), content);
            QCOMPARE(folder.Rows(jobsFile, u"SELECT User, State FROM Users"_s), u"ANNA 0"_s);

            QFile::remove(company);
            folder.MakeJobs(companyFile);
            copy.jobs.LookForConfigured();
            QCOMPARE(copy.found.value(0).value(0).toString(), company);
            QVERIFY(copy.UsesLocalCopy()); // it is found, not taken
            copy.jobs.Choose(company);
            QVERIFY(copy.UsesCompany() && !copy.jobs.LooksForConfigured());
        }
    }

    void SeesWhatOthersDoToTheList()
    {
        const WithCompany folder;
        Copy copy(folder);
        copy.jobs.Choose(folder.Company());
        copy.jobs.FillJobList();
        const QSignalSpy filled(&copy.jobs, &JobDatabase::JobListFilled);
        const auto afterPoll = [&](const QString &change) {
            folder.Sql(companyFile, change);
            copy.Poll();
            return u"%1 %2"_s.arg(filled.size()).arg(copy.lists.CompanyList.Items().join(u", "_s));
        };
        QCOMPARE(afterPoll(u"INSERT INTO Users (User) VALUES ('BO')"_s), u"0 C1 : x"_s); // none of the list
        QCOMPARE(afterPoll(u"INSERT INTO Projects (JobID) VALUES ('C2')"_s), u"1 C1 : x, C2 : "_s);
        QCOMPARE(afterPoll(u"DELETE FROM Projects WHERE JobID = 'C1'"_s), u"2 C2 : "_s);
        QCOMPARE(afterPoll(u"INSERT INTO Projects (JobID) VALUES ('C3')"_s), u"3 C2 : , C3 : "_s);
        QCOMPARE(afterPoll(u"UPDATE Projects SET JobName = 'y' WHERE JobID = 'C2'"_s), u"4 C2 : y, C3 : "_s);
        copy.jobs.ForgetPolls(); // what is told again is not the list
        QCOMPARE(afterPoll(u"UPDATE Users SET State = 1"_s), u"4 C2 : y, C3 : "_s);
        dao::Database::OpenDatabase(folder.Company())
            .ExecuteOnLarge(u"INSERT INTO Projects (JobID, JobName) VALUES ('C4', zeroblob(10000000)), "
                            "(zeroblob(10000000), '')"_s,
                            {}, u"a test"_s);
        QCOMPARE(afterPoll(u"UPDATE Users SET State = 0"_s),
                 u"5 (too large, row 5) : , C2 : y, C3 : , C4 : (too large to be read)"_s);
        for (const QString &item : {u"(too large, row 5) : "_s, u"C4 : "_s})
            copy.jobs.DeleteJob(this, item, [](bool written) { QVERIFY(written); });
        QCOMPARE(copy.lists.CompanyList.Items().join(u", "_s), u"C2 : y, C3 : "_s);
    }

    void AnswersEachCreation()
    {
        const WithCompany folder;
        Copy copy(folder, false, CompanyLink::Mode::Thread);
        copy.jobs.Choose(folder.Company());
        QStringList answers;
        for (const QString &id : {u"N1"_s, u"C1"_s}) // the first was not waited for
            copy.jobs.CreateJob(this, {id, u"x"_s}, [&answers, id](Projects::Creation creation) {
                answers.append(id + (creation == Projects::Creation::Stored ? u" stored"_s : u" refused"_s));
            });
        copy.jobs.Choose(folder.Company()); // it stays in use
        QTRY_COMPARE(answers.join(u", "_s), u"N1 stored, C1 refused"_s);
    }

    void NoticesAnotherFileInThePlaceOfTheOneInUse()
    {
#ifdef Q_OS_WIN
        QSKIP("no file that is open can be replaced here");
#endif
        const WithCompany folder;
        Copy copy(folder);
        copy.jobs.Choose(folder.Company());
        copy.jobs.FillJobList();
        const QString backup = u"backup.mdb"_s; // with as many jobs
        folder.MakeJobs(backup, {u"D1"_s});
        QVERIFY(QFile::remove(folder.Company()) && QFile::rename(folder.File(backup), folder.Company()));
        copy.jobs.Set_In({});
        copy.Poll();
        QCOMPARE(copy.cameBack.size(), 1);
        copy.jobs.FillJobList();
        QCOMPARE(copy.lists.CompanyList.Items(), QStringList(u"D1 : x"_s));
        copy.Poll();
        QCOMPARE(copy.cameBack.size(), 1);
    }

    void SetsItsRowRightWhenAnotherCopyHasClosed()
    {
        const WithCompany folder;
        Copy copy(folder);
        copy.jobs.Choose(folder.Company());
        copy.jobs.AddSelfToUsers();
        copy.jobs.Set_In({});
        const auto afterPolls = [&](const QString &written) {
            folder.Sql(companyFile, u"UPDATE Users SET State = "_s + written);
            copy.Poll(), copy.Poll();
            return folder.Rows(companyFile, u"SELECT State FROM Users"_s);
        };
        QCOMPARE(afterPolls(u"1"_s), u"-1"_s);
        QCOMPARE(afterPolls(u"0"_s), u"0"_s); // two copies would fight
        QCOMPARE(afterPolls(u"1"_s), u"-1"_s);
        folder.Sql(companyFile, u"DELETE FROM Users"_s);
        {
            const Holder other(folder.Company());
            copy.Poll();
        }
        copy.Poll();
        QCOMPARE(copy.cameBack.size(), 1);
        copy.jobs.AddSelfToUsers();
        QCOMPARE(folder.Rows(companyFile, u"SELECT count(*) FROM Users"_s), u"0"_s); // it was deleted
        copy.jobs.Set_OFF();
        QCOMPARE(afterPolls(u"1"_s), QString());
    }

    void TakesTheFileThatWasPickedLast()
    {
        const WithCompany folder;
        folder.MakeJobs(u"other.mdb"_s);
        Copy copy(folder, false, CompanyLink::Mode::Thread);
        copy.jobs.Choose(folder.File(u"missing.mdb"_s));
        connect(&copy.jobs, &JobDatabase::Looked, &copy.jobs, &JobDatabase::ChooseLooked);
        Holder holder(folder.Company());
        copy.jobs.LookAt(folder.Company());
        QVERIFY(copy.jobs.LocalJobs);
        copy.jobs.LookAt(folder.File(u"other.mdb"_s));
        holder.LetGo();
        QTRY_COMPARE(copy.jobs.CompanyPath, folder.File(u"other.mdb"_s));
        copy.jobs.LookAt(folder.Company());
        QTRY_COMPARE(copy.jobs.CompanyPath, folder.Company());
        QCOMPARE(copy.found.size(), 2);
    }

    void GoesOnWithoutAFileThatIsLockedAtStart()
    {
        const WithCompany folder;
        folder.MakeJobs(jobsFile, {u"L1"_s});
        Holder other(folder.Company());
        Copy copy(folder, false, CompanyLink::Mode::Thread);
        copy.jobs.Choose(folder.Company());
        QVERIFY(copy.UsesCompany()); // it is not missing
        copy.jobs.FillJobList();
        QTRY_COMPARE(copy.lists.CompanyList.Items(), QStringList(u"L1 : x"_s));
        copy.Poll();
        other.LetGo();
        const auto pollUntilBack = [&] {
            copy.Poll();
            return copy.cameBack.size() == 1;
        };
        QTRY_VERIFY(pollUntilBack());
        QCOMPARE(copy.lists.CompanyList.Items(), QStringList(u"C1 : x"_s));
        QVERIFY(copy.jobs.Close(plenty));
    }

    void ReadsForTheLocalCopyFromAnotherFileOnly()
    {
        const WithCompany folder;
        const auto rows = [](Copy &copy, const QString &configured) {
            copy.jobs.Choose(configured);
            return copy.jobs.RowsForLocalCopy(1s);
        };
        Copy copy(folder);
        QCOMPARE(rows(copy, folder.Company())->projects, QList<QVariantList>({{u"C1"_s, u"x"_s}}));
        QVERIFY(!rows(copy, {})); // the local copy itself is in use
        copy.jobs.Choose(folder.Company());
        QVERIFY(QFile::remove(folder.File(jobsFile)) && Link(folder.Company(), folder.File(jobsFile)));
        QVERIFY(!copy.jobs.RowsForLocalCopy(1s)); // it has become that very file
        QFile::remove(folder.File(jobsFile));

        Copy onNetwork(folder, true); // where the own file is everybody's
        QVERIFY(!rows(onNetwork, folder.Company()));
        QVERIFY(!rows(onNetwork, {}));
        QVERIFY(onNetwork.UsesCompany());
    }

    void KnowsTheOwnFileByAnySpelling()
    {
        const ProgramFolder folder;
        folder.MakeJobs(jobsFile);
        const QString link = folder.File(u"link.mdb"_s);
        QVERIFY(Link(folder.File(jobsFile), link));
        QStringList spellings{folder.Path() + u"/./Jobs.mdb"_s, link};
#ifdef Q_OS_WIN
        spellings += QDir::toNativeSeparators(folder.Path().toLower() + u"/JOBS.MDB"_s);
#endif
        for (const QString &spelling : spellings) {
            Copy copy(folder);
            for (const QString &path : {spelling, folder.File(u"Blank Jobs.mdb"_s)})
                copy.jobs.Judge(path, [&](const PathJudgement &judgement) {
                    QVERIFY(judgement.Exists());
                    QCOMPARE(judgement.isOwnFile, path == spelling);
                    QCOMPARE(judgement.canAutoUpdate, path != spelling);
                });
            copy.jobs.Choose(spelling);
            QVERIFY(copy.jobs.EnterpriseOn && copy.jobs.LocalJobs && !copy.jobs.CompanyJobs);
        }
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
        folder.MakeJobs(jobsFile);
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
