#pragma once

#include "board/Presence.h"
#include "company/CompanyLink.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <optional>

struct Identity;
struct JobLists;

// The job database in use: which file it is, and all that is asked of it. Nothing here blocks but Choose, MatchLoginToUser
// and Close, each at most for its limit.
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
    // is missing too. A file that does not answer in time is not a missing one: it stays the one in use.
    void Choose(const QString &configured);

    // Opens the company database at `path` and matches the login name; the identity it stands for, or nothing.
    std::optional<QString> MatchLoginToUser(const QString &path, const QString &login);

    void AddSelfToUsers();
    void Set_In() { WriteState(Presence::State::In); }
    void Set_Out() { WriteState(Presence::State::Out); }
    void Set_OFF() { WriteState(Presence::State::Off); }

    void FillJobList();                  // JobListFilled() follows
    void DeleteJob(const QString &item); // and fills the list anew

    bool FileExists(const QString &path);    // bounded; false when it took too long
    bool IsOwnJobsFile(const QString &path); // the program folder's own "Jobs.mdb", under any spelling

    bool Close(std::chrono::milliseconds limit) { return link_.Stop(limit); }
    CompanyLink &Link() { return link_; }

signals:
    void JobListFilled();

private:
    void OpenCompanyDb(const QString &path, bool isOwnFile);
    void WriteState(Presence::State state);

    const Identity &identity_;
    JobLists &lists_;
    CompanyLink link_;
};
