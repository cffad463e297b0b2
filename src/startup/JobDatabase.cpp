#include "startup/JobDatabase.h"

#include "clock/CompanyJobs.h"
#include "clock/JobLists.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"

#include <QLoggingCategory>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.company")

constexpr std::chrono::milliseconds startLimit = 2s; // what a file that does not answer may cost at start

struct Choice
{
    QString path;
    bool configuredExists = false;
    bool exists = false;
    bool isOwnFile = false;
};

} // namespace

JobDatabase::JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists)
    : identity_(identity), lists_(lists), link_(mode)
{
}

void JobDatabase::Choose(const QString &configured)
{
    const QString own = identity_.InAppFolder(QStringLiteral("Jobs.mdb"));
    const QString blank = identity_.InAppFolder(QStringLiteral("Blank Jobs.mdb"));
    const auto choice = std::make_shared<Choice>();
    const bool answered = link_.RunWithin(startLimit, [choice, configured, own, blank] {
        Choice made;
        made.configuredExists = DataFiles::FileExists(configured);
        made.path = made.configuredExists ? configured : own;
        if (!made.configuredExists && !DataFiles::FileExists(own) && DataFiles::FileExists(blank))
            DataFiles::CopyTemplate(blank, own);
        made.exists = DataFiles::FileExists(made.path);
        made.isOwnFile = DataFiles::SameFile(made.path, own);
        *choice = made;
    });
    if (!answered) {
        qCWarning(log) << configured << "does not answer";
        CompanyPath = configured;
        EnterpriseOn = CompanyJobs = true;
        LocalJobs = false;
        link_.Open(configured);
        return;
    }
    CompanyPath = choice->path;
    EnterpriseOn = choice->configuredExists;
    CompanyJobs = LocalJobs = false;
    if (choice->exists)
        OpenCompanyDb(choice->path, choice->isOwnFile);
}

void JobDatabase::OpenCompanyDb(const QString &path, bool isOwnFile)
{
    link_.Open(path);
    const auto answer = link_.AskWithin(startLimit, [](dao::Database &) { return true; });
    if (answer && answer->error && answer->error->Kind() != dao::ErrorKind::Busy) {
        qCWarning(log).noquote() << answer->error->Text();
        EnterpriseOn = false;
        return;
    }
    LocalJobs = isOwnFile && !identity_.OnNetworkDrive;
    CompanyJobs = !LocalJobs;
    if (CompanyJobs)
        EnterpriseOn = true;
}

std::optional<QString> JobDatabase::MatchLoginToUser(const QString &path, const QString &login)
{
    link_.Open(path);
    const auto answer =
        link_.AskWithin(startLimit, [login](dao::Database &database) { return Presence::MatchLogin(database, login); });
    if (!answer)
        return std::nullopt;
    if (answer->error) {
        qCWarning(log).noquote() << answer->error->Text();
        return std::nullopt;
    }
    return *answer->value;
}

void JobDatabase::AddSelfToUsers()
{
    if (identity_.UserInitials.isEmpty() || (!CompanyJobs && !LocalJobs))
        return;
    link_.Tell([user = identity_.UserInitials, fullName = identity_.UserFullName](dao::Database &database) {
        Presence::AddSelfToUsers(database, user, fullName);
    });
}

void JobDatabase::WriteState(Presence::State state)
{
    if (!EnterpriseOn)
        return;
    link_.Tell([user = identity_.UserInitials, state](dao::Database &database) {
        Presence::WriteState(database, user, state);
    });
}

void JobDatabase::FillJobList()
{
    if (!CompanyJobs && !LocalJobs) {
        lists_.CompanyList.Clear();
        emit JobListFilled();
        return;
    }
    link_.Ask(
        this,
        [](dao::Database &database) {
            JobList list; // made ready for searching here, beside the windows
            list.Assign(ReadProjects(database));
            return list;
        },
        [this](const Answer<JobList> &answer) {
            if (answer.error)
                qCWarning(log).noquote() << answer.error->Text();
            else
                lists_.CompanyList = *answer.value;
            emit JobListFilled();
        });
}

void JobDatabase::DeleteJob(const QString &item)
{
    link_.Tell([item](dao::Database &database) { CompanyJobs::DeleteJob(database, item); });
    FillJobList();
}

bool JobDatabase::FileExists(const QString &path)
{
    return link_.FileExistsWithin(startLimit, path).value_or(false);
}

bool JobDatabase::IsOwnJobsFile(const QString &path)
{
    const auto same = std::make_shared<bool>(false);
    const bool answered =
        link_.RunWithin(startLimit, [same, path, own = identity_.InAppFolder(QStringLiteral("Jobs.mdb"))] {
            *same = DataFiles::SameFile(path, own);
        });
    return answered && *same;
}
