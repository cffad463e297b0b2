#pragma once

#include "board/Poll.h"
#include "board/Presence.h"
#include "clock/JobList.h"
#include "clock/Projects.h"
#include "company/CompanyLink.h"
#include "settings/PathJudgement.h"
#include "startup/LocalJobCopy.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

struct ClockState;
struct Identity;
struct JobLists;
struct Options;

// What colleagues may see of the job that the person is stemped in on; nothing when that is kept private.
std::optional<Presence::Work> WorkToShow(const ClockState &clock, const Options &options);

// The job database in use: which file it is, and all that is asked of it. Choose, ChooseLooked, MatchLoginToUser,
// RowsForLocalCopy and Close wait for the file system, each in all at most for its limit; a file that was
// waited for in vain is not waited for again until it has answered. UpdateLocalJobCopy writes in the program folder. Nothing
// else here blocks.
class JobDatabase : public QObject
{
    Q_OBJECT

public:
    JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists);

    QString CompanyPath;       // of the job database in use
    bool EnterpriseOn = false; // presence rows may be written
    bool CompanyJobs = false;  // it is the shared company database
    bool LocalJobs = false;    // it is the local copy in the program folder

    std::optional<dao::ErrorKind> WhyNotUsed; // the configured file; nothing while it is in use, or none is configured
    bool OwnFileDamaged = false;              // "Jobs.mdb" in the program folder is needed, but no job database
    QString OwnFileTrouble; // why it does not serve, as a sentence; empty when it does or is not needed

    // Takes the file at `configured` when it serves, else "Jobs.mdb" in the program folder, made from its template when that is
    // missing too; a configured file that does not serve (it is missing, or no job database) is looked for from then on. A file
    // that is locked or does not answer in time is not a missing one: it stays the one in use. The list of another file than
    // before is empty until it is filled.
    void Choose(const QString &configured);
    // The same without waiting for that file: Looked() comes when the one at `configured` has answered, unless another was
    // looked at since, and ChooseLooked takes that answer. The file in use stays so until then. ChooseLooked waits as Choose
    // does for the program folder's own file when the other one does not serve.
    void LookAt(const QString &configured);
    void ChooseLooked();
    // Sets a damaged "Jobs.mdb" of the program folder aside for a new one, with what can still be read of it; Choose is to follow.
    // What came of it, for the person.
    QString MendOwnFile(const QDateTime &now);

    // Opens the company database at `path` and matches the login name; the identity it stands for, or nothing. Before the first
    // Choose only; the two share what they may wait.
    std::optional<QString> MatchLoginToUser(const QString &path, const QString &login);

    // Once for each file: a row that is deleted while the program runs stays so, unless another file takes the place of this one.
    void AddSelfToUsers();
    // The state that was written last is written again when a poll finds the own row at "off", where another copy of the same
    // person has put it as it closed.
    void Set_In(const std::optional<Presence::Work> &work) { Publish({Presence::State::In, work}); }
    void Set_Out() { Publish({Presence::State::Out, {}}); }
    void Set_OFF();

    // Writes a status. One that the file does not take is kept until a poll finds that it can be written, or until Set_OFF, the
    // last one for each user; also one for a file that is being looked for. KeptStatusesChanged() tells of either.
    void WriteComment(const QString &user, const QString &comment);
    QStringList UsersWithKeptStatus() const; // for the file in use, or that which is looked for

    // Each goes on in `done`, unless `context` is gone by then or another file is in use: whether it was written. The first
    // never in a local copy; DeleteJob fills the list anew.
    void DeleteUser(QObject *context, const QString &user, std::function<void(bool)> done);
    void DeleteJob(QObject *context, const QString &item, std::function<void(bool)> done);

    // JobListFilled() follows when the list has changed. The file in use is read unless its list is known and no job was added
    // or deleted since; until it has answered, the list is that of the local copy.
    void FillJobList();
    // Adds a job and fills the list anew. `done` comes when the file has answered, or as Failed when another one is chosen
    // before, unless `context` is gone by then.
    void CreateJob(QObject *context, const JobItem &job, std::function<void(Projects::Creation)> done);

    // Looks what others have changed, and delivers: Polled() or PollFailed() follows, unless another file comes into use or
    // this one is closed. Nothing when EnterpriseOn is off, or while the poll before is not answered.
    void Poll(const Poll::Request &request);
    bool IsPolling() const { return polling_; }
    // An answer was lost on its way to the per-login database: the next poll tells everything again.
    void ForgetPolls();
    // Reads the users of a file that is not polled, the local copy: UsersRead() follows if it can be read.
    void ReadUsers();

    // Looks at a file that may come into use, and tells what it is; `NoAnswer` when that takes too long. Of those that are asked
    // about while one is being looked at, only the last is looked at and answered.
    void Judge(const QString &path, std::function<void(const PathJudgement &)> done);

    // What the local copy is rebuilt from; nothing unless the job database in use is a shared one, another file than the copy,
    // and answers in time. Nothing in a program folder on a network drive, where "Jobs.mdb" is everybody's file.
    std::optional<LocalJobCopy::Snapshot> RowsForLocalCopy(std::chrono::milliseconds limit);
    bool Close(std::chrono::milliseconds limit);                 // false when the file does not answer
    void UpdateLocalJobCopy(const LocalJobCopy::Snapshot &rows); // after Close

    // Whether the configured file does not serve and is looked for once a minute.
    bool LooksForConfigured() const { return searchTimer_.isActive(); }

public slots:
    void LookForConfigured(); // the timer's: quietly; Looked() comes only if it serves now

signals:
    void JobListFilled();
    void Polled(const Poll::News &news);
    void PollFailed(dao::ErrorKind kind);
    void UsersRead(const QList<Presence::UserRow> &users);
    void KeptStatusesChanged();
    // A poll was answered after a request had failed, after a start without an answer, or after another file took the place of
    // the one in use: states and lists may have been missed.
    void CameBack();
    void Looked(const QString &path); // for ChooseLooked

private:
    using Deadline = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds waitLimit{2000};  // what a file that does not answer may cost
    static constexpr std::chrono::milliseconds judgeLimit{3000}; // more than a locked file takes to say so

    using JobsMark = std::optional<QString>; // of the list that was read last; nothing before that

    // What the requests on one file, which run in order, leave to the next. Each belongs to them once it is given to one: it is
    // forgotten by giving the next ones another.
    struct Seen
    {
        std::shared_ptr<Poll::Memory> poll = std::make_shared<Poll::Memory>();
        std::shared_ptr<JobsMark> jobsMark = std::make_shared<JobsMark>();
    };
    struct PollAnswer
    {
        Poll::News news;
        std::optional<JobList> jobs; // when there are others than before
    };
    struct Finding
    {
        bool answers = true;
        bool serves = false; // taken for granted while it does not answer
        bool isOwnFile = false;
        std::optional<dao::ErrorKind> failure = {}; // why it does not serve
    };

    static JobList ReadJobList(dao::Database &database, const Seen &seen, const QString &mark);
    static PollAnswer RunPoll(dao::Database &database, const Seen &seen, const Poll::Request &request);

    // The choice of the file, in JobDatabaseChoice.cpp.
    QString OwnJobsFile() const;
    QString BlankJobsFile() const;
    Finding OpenOwnFile(Deadline deadline);
    static Finding FindingOf(const QString &path, const QString &own, const std::optional<Answer<bool>> &answer);
    void Use(const QString &path);
    Finding Open(const QString &path, Deadline deadline);
    void TryOut(const QString &path, bool quietly);
    void TakeIntoUse(const QString &configured, Finding finding, Deadline deadline);
    void JudgeNext();
    void TakeJudgement(const PathJudgement &judgement);
    PathJudgement JudgementOf(const QString &path, const dao::Error &error) const;

    struct Published
    {
        Presence::State state;
        std::optional<Presence::Work> work;
    };
    struct KeptStatus
    {
        QString path; // of the file
        QString user;
        QString comment;
    };

    void Publish(const Published &state);
    void WriteState(const Published &state);
    void SetRightIfOff(const Poll::News &news);
    void NoteFile(const QString &fileId);
    QString PathOfUsers() const;
    void KeepStatus(const KeptStatus &status);
    void ForgetStatus(const KeptStatus &status);
    QList<KeptStatus> KeptStatuses() const;
    void WriteKeptStatuses();
    void ForgetJobs();
    void FillFromLocalCopy();
    void TakeJobList(const JobList &list);
    void ShowJobList(const JobList &list);
    void MissedIfFailed(const Answer<void> &answer);
    void Missed(const dao::Error &error);

    const Identity &identity_;
    JobLists &lists_;
    CompanyLink link_;
    QTimer searchTimer_;
    QTimer retryTimer_; // for the list, where no poll tries again
    QString configured_;
    QString wanted_;                 // the file that was last asked to come into use; answers of others are not heard
    std::optional<Finding> finding_; // its answer
    struct Judging
    {
        QString path;
        std::function<void(const PathJudgement &)> done;
    };
    std::optional<Judging> judging_; // the file that is being looked at
    std::optional<Judging> toJudge_; // the one after it
    quint64 lastJudging_ = 0;
    QTimer judgeTimer_;
    bool searching_ = false;                                              // a look for the configured file is under way
    std::map<quint64, std::function<void(Projects::Creation)>> creating_; // what waits for the answers of creations
    quint64 lastCreation_ = 0;
    bool polling_ = false;  // a poll is under way
    bool missed_ = false;   // a request failed, the file did not answer at first, or it was replaced; no poll since
    QString loggedError_;   // since the person was last known to be among the users
    bool listRead_ = false; // the list in memory is that of the file in use
    std::optional<Published> published_;
    bool addedSelf_ = false; // to this file
    QString fileId_;         // of the file that was polled last; empty when it has none
    QList<KeptStatus> keptStatuses_;
    Seen seen_;
    std::chrono::milliseconds nextLimit_ =
        waitLimit; // of the next Choose: what was waited for at start before counts, too
};
