#include "startup/JobDatabase.h"

#include "clock/CompanyJobs.h"
#include "clock/JobLists.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"

#include <QLoggingCategory>

#include <memory>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr std::chrono::milliseconds startLimit = 2s; // what a file that does not answer may cost at start

std::chrono::steady_clock::time_point InTime()
{
    return std::chrono::steady_clock::now() + startLimit;
}

std::chrono::milliseconds Left(std::chrono::steady_clock::time_point deadline)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
}

} // namespace

JobDatabase::JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists)
    : identity_(identity), lists_(lists), link_(mode)
{
}

void JobDatabase::Choose(const QString &configured)
{
    const Deadline deadline = InTime();
    QString path = configured;
    std::optional<Found> found = LookFor(path, deadline);
    EnterpriseOn = !found || found->exists;
    if (!EnterpriseOn) {
        path = OwnJobsFile();
        link_.RunWithin(Left(deadline), path, [path, blank = identity_.InAppFolder(QStringLiteral("Blank Jobs.mdb"))] {
            if (!DataFiles::FileExists(path) && DataFiles::FileExists(blank))
                DataFiles::CopyTemplate(blank, path);
        });
        found = LookFor(path, deadline);
    }
    if (!found)
        qCWarning(log) << path << "does not answer";
    if (path != CompanyPath) {
        // A job of the file before must not be deleted from this one.
        lists_.CompanyList.Clear();
        emit JobListFilled();
    }
    CompanyPath = path;
    CompanyJobs = LocalJobs = false;
    if (!found || found->exists)
        OpenCompanyDb(path, found ? found->isOwnFile : path == OwnJobsFile(), deadline);
}

QString JobDatabase::OwnJobsFile() const
{
    return identity_.InAppFolder(QStringLiteral("Jobs.mdb"));
}

std::optional<JobDatabase::Found> JobDatabase::LookFor(const QString &path, Deadline deadline)
{
    if (path.isEmpty())
        return Found{};
    const auto found = std::make_shared<Found>();
    const bool answered = link_.RunWithin(Left(deadline), path, [found, path, own = OwnJobsFile()] {
        *found = {DataFiles::FileExists(path), DataFiles::SameFile(path, own)};
    });
    return answered ? std::optional(*found) : std::nullopt;
}

void JobDatabase::OpenCompanyDb(const QString &path, bool isOwnFile, Deadline deadline)
{
    link_.Open(path);
    const auto answer = link_.AskWithin(Left(deadline), [](dao::Database &) { return true; });
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
    const std::optional<Found> found = LookFor(path, InTime());
    return found && found->exists;
}

bool JobDatabase::IsOwnJobsFile(const QString &path)
{
    const std::optional<Found> found = LookFor(path, InTime());
    return found && found->isOwnFile;
}
