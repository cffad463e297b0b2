#pragma once

#include "board/Presence.h"
#include "company/CompanyLink.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <optional>

struct Identity;
struct JobLists;

// The job database in use: which file it is, and all that is asked of it. Choose, MatchLoginToUser, FileExists, IsOwnJobsFile
// and Close wait for the file system, each in all at most for its limit; a file that was waited for in vain is not waited for
// again until it has answered. Nothing else here blocks.
class JobDatabase : public QObject
{
    Q_OBJECT

public:
    JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists);

    QString CompanyPath;       // of the job database in use
    bool EnterpriseOn = false; // presence rows may be written
    bool CompanyJobs = false;  // it is the shared company database
    bool LocalJobs = false;    // it is the local copy in the program folder

    // Takes the file at `configured` when it exists, else "Jobs.mdb" in the program folder, made from its template when that
    // is missing too. A file that does not answer in time is not a missing one: it stays the one in use. The list of another
    // file than before is empty until it is filled.
    void Choose(const QString &configured);

    // Opens the company database at `path` and matches the login name; the identity it stands for, or nothing.
    std::optional<QString> MatchLoginToUser(const QString &path, const QString &login);

    void AddSelfToUsers();
    void Set_In() { WriteState(Presence::State::In); }
    void Set_Out() { WriteState(Presence::State::Out); }
    void Set_OFF() { WriteState(Presence::State::Off); }

    void FillJobList();                  // JobListFilled() follows
    void DeleteJob(const QString &item); // and fills the list anew

    bool FileExists(const QString &path);    // false when it does not answer
    bool IsOwnJobsFile(const QString &path); // the program folder's own "Jobs.mdb", under any spelling

    bool Close(std::chrono::milliseconds limit) { return link_.Stop(limit); }

signals:
    void JobListFilled();

private:
    using Deadline = std::chrono::steady_clock::time_point;
    struct Found
    {
        bool exists = false;
        bool isOwnFile = false;
    };

    QString OwnJobsFile() const;
    std::optional<Found> LookFor(const QString &path, Deadline deadline); // nothing when it does not answer
    void OpenCompanyDb(const QString &path, bool isOwnFile, Deadline deadline);
    void WriteState(Presence::State state);

    const Identity &identity_;
    JobLists &lists_;
    CompanyLink link_;
};
