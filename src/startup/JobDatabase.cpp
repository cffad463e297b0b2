#include "startup/JobDatabase.h"

#include "clock/Clock.h"
#include "clock/JobLists.h"
#include "settings/Options.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr std::chrono::seconds retryPeriod{10}; // between two tries to read the local copy's list
constexpr std::chrono::minutes searchPeriod{1}; // between two looks for a configured file that did not serve

auto WhetherWritten(std::function<void(bool)> done)
{
    return [done = std::move(done)](const Answer<void> &answer) {
        if (answer.error)
            qCWarning(log).noquote() << answer.error->Text();
        done(!answer.error);
    };
}

} // namespace

std::optional<Presence::Work> WorkToShow(const ClockState &clock, const Options &options)
{
    if (!options.ShowJob || !clock.IsStempedIn || !clock.OpenSince || clock.CurrentJob.isEmpty())
        return std::nullopt;
    return Presence::Work{clock.CurrentJob, *clock.OpenSince};
}

JobDatabase::JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists)
    : identity_(identity), lists_(lists), link_(mode)
{
    searchTimer_.setInterval(searchPeriod);
    connect(&searchTimer_, &QTimer::timeout, this, &JobDatabase::LookForConfigured);
    retryTimer_.setSingleShot(true);
    retryTimer_.setInterval(retryPeriod);
    connect(&retryTimer_, &QTimer::timeout, this, &JobDatabase::FillJobList);
    judgeTimer_.setSingleShot(true);
    judgeTimer_.setInterval(judgeLimit);
    connect(&judgeTimer_, &QTimer::timeout, this, [this] { TakeJudgement({PathJudgement::Outcome::NoAnswer}); });
    connect(&link_, &CompanyLink::Replaced, this, [this] {
        missed_ = true;
        addedSelf_ = false;
        ForgetJobs();
    });
}

void JobDatabase::AddSelfToUsers()
{
    if (identity_.UserInitials.isEmpty() || (!CompanyJobs && !LocalJobs) || addedSelf_)
        return;
    link_.Ask(
        this,
        [user = identity_.UserInitials, fullName = identity_.UserFullName,
         login = identity_.OnNetworkDrive ? identity_.WinUserName : QString()](dao::Database &database) {
            Presence::AddSelfToUsers(database, user, fullName, login);
        },
        [this](const Answer<void> &answer) {
            addedSelf_ = !answer.error;
            if (!answer.error)
                loggedError_.clear();
            MissedIfFailed(answer);
        });
}

void JobDatabase::Publish(const Published &state)
{
    published_ = state;
    WriteState(state);
}

void JobDatabase::WriteState(const Published &state)
{
    if (!EnterpriseOn)
        return;
    link_.Ask(
        this,
        [user = identity_.UserInitials, state](dao::Database &database) {
            Presence::WriteState(database, user, state.state, state.work);
        },
        [this](const Answer<void> &answer) { MissedIfFailed(answer); });
}

// Only from "off": two copies of one person that overwrote each other's "in" and "out" would do so for ever.
void JobDatabase::SetRightIfOff(const Poll::News &news)
{
    const auto own = std::find_if(news.users.cbegin(), news.users.cend(), [this](const Presence::UserRow &row) {
        return Presence::SameName(row.user, identity_.UserInitials);
    });
    if (published_ && own != news.users.cend() && own->state > 0)
        WriteState(*published_);
}

// A file that was away and came back may be another one, in which nobody has deleted the own row.
void JobDatabase::NoteFile(const QString &fileId)
{
    if (fileId.isEmpty())
        return;
    if (!fileId_.isEmpty() && fileId != fileId_)
        addedSelf_ = false;
    fileId_ = fileId;
}

QString JobDatabase::PathOfUsers() const
{
    return EnterpriseOn ? CompanyPath : configured_;
}

void JobDatabase::WriteComment(const QString &user, const QString &comment)
{
    const KeptStatus status{PathOfUsers(), user, comment};
    if (!EnterpriseOn) {
        KeepStatus(status);
        return;
    }
    link_.Ask(
        this, [user, comment](dao::Database &database) { Presence::WriteComment(database, user, comment); },
        [this, status](const Answer<void> &answer) {
            if (!answer.error) {
                ForgetStatus(status);
                return;
            }
            Missed(*answer.error);
            KeepStatus(status);
        });
}

void JobDatabase::DeleteUser(QObject *context, const QString &user, std::function<void(bool)> done)
{
    if (!EnterpriseOn)
        return done(false);
    link_.Ask(
        context, [user](dao::Database &database) { Presence::DeleteUser(database, user); },
        WhetherWritten(std::move(done)));
}

// The file goes out of use: no answer will be heard.
void JobDatabase::Set_OFF()
{
    published_.reset();
    if (!EnterpriseOn)
        return;
    link_.Tell([user = identity_.UserInitials](dao::Database &database) {
        Presence::WriteState(database, user, Presence::State::Off);
    });
    for (const KeptStatus &status : KeptStatuses()) {
        link_.Tell(
            [status](dao::Database &database) { Presence::WriteComment(database, status.user, status.comment); });
        ForgetStatus(status);
    }
}

QList<JobDatabase::KeptStatus> JobDatabase::KeptStatuses() const
{
    QList<KeptStatus> kept = keptStatuses_;
    kept.removeIf([this](const KeptStatus &status) { return status.path != PathOfUsers(); });
    return kept;
}

QStringList JobDatabase::UsersWithKeptStatus() const
{
    QStringList users;
    for (const KeptStatus &status : KeptStatuses())
        users.append(status.user);
    return users;
}

void JobDatabase::KeepStatus(const KeptStatus &status)
{
    ForgetStatus(status);
    keptStatuses_.append(status);
    emit KeptStatusesChanged();
}

// An earlier one for the same user, too.
void JobDatabase::ForgetStatus(const KeptStatus &status)
{
    const auto forgotten = keptStatuses_.removeIf([&status](const KeptStatus &kept) {
        return kept.path == status.path && Presence::SameName(kept.user, status.user);
    });
    if (forgotten > 0)
        emit KeptStatusesChanged();
}

void JobDatabase::WriteKeptStatuses()
{
    for (const KeptStatus &status : KeptStatuses())
        WriteComment(status.user, status.comment);
}

void JobDatabase::MissedIfFailed(const Answer<void> &answer)
{
    if (answer.error)
        Missed(*answer.error);
}

void JobDatabase::Missed(const dao::Error &error)
{
    // What is refused will be refused the next time, too.
    const bool refused = error.Kind() == dao::ErrorKind::ReadOnly || error.Kind() == dao::ErrorKind::Constraint;
    // Once, however long the file stays away, and however often a full one lets itself be read in between.
    if ((refused || !missed_) && std::exchange(loggedError_, error.Text()) != error.Text())
        qCWarning(log).noquote() << error.Text();
    missed_ = missed_ || !refused;
}

void JobDatabase::FillJobList()
{
    if (!CompanyJobs && !LocalJobs) {
        ShowJobList({});
        return;
    }
    if (missed_) // nobody knows when it answers
        FillFromLocalCopy();
    link_.Ask(
        this,
        [seen = seen_](dao::Database &database) -> std::optional<JobList> {
            const QString mark = Presence::ReadJobsMark(database);
            if (*seen.jobsMark == mark)
                return std::nullopt;
            return ReadJobList(database, seen, mark);
        },
        [this](const Answer<std::optional<JobList>> &answer) {
            if (!answer.error) {
                if (const std::optional<JobList> &list = *answer.value)
                    TakeJobList(*list);
                return;
            }
            Missed(*answer.error);
            ForgetJobs();
            FillFromLocalCopy();
            if (!EnterpriseOn)
                retryTimer_.start();
        });
}

void JobDatabase::FillFromLocalCopy()
{
    if (listRead_ || CompanyPath == OwnJobsFile())
        return;
    link_.AskOf(
        OwnJobsFile(), this,
        [](dao::Database &database) {
            JobList list;
            list.Assign(ReadProjects(database));
            return list;
        },
        [this](const Answer<JobList> &answer) {
            if (answer.error)
                qCWarning(log).noquote() << answer.error->Text();
            else if (!listRead_) // else the file in use was faster
                ShowJobList(*answer.value);
        });
}

// `mark` is older than the list: what changes in between is noticed the next time.
JobList JobDatabase::ReadJobList(dao::Database &database, const Seen &seen, const QString &mark)
{
    JobList list; // made ready for searching here, beside the windows
    list.Assign(ReadProjects(database));
    *seen.jobsMark = mark;
    return list;
}

void JobDatabase::TakeJobList(const JobList &list)
{
    listRead_ = true;
    retryTimer_.stop();
    ShowJobList(list);
}

// The file was away and may be another one by now, whose list has the same mark.
void JobDatabase::ForgetJobs()
{
    seen_.jobsMark = Seen().jobsMark;
}

// A list that is the same is not shown anew: a person may be searching in it.
void JobDatabase::ShowJobList(const JobList &list)
{
    if (lists_.CompanyList.Items() == list.Items())
        return;
    lists_.CompanyList = list;
    emit JobListFilled();
}

void JobDatabase::Poll(const Poll::Request &request)
{
    if (!EnterpriseOn || std::exchange(polling_, true))
        return;
    link_.Ask(
        this, [seen = seen_, request](dao::Database &database) { return RunPoll(database, seen, request); },
        [this](const Answer<PollAnswer> &answer) {
            polling_ = false;
            if (answer.error) {
                Missed(*answer.error);
                ForgetJobs();
                emit PollFailed(answer.error->Kind());
                return;
            }
            if (answer.value->jobs)
                TakeJobList(*answer.value->jobs);
            const Poll::News &news = answer.value->news;
            NoteFile(news.fileId);
            emit Polled(news);
            if (news.refusedWrite) {
                missed_ = true; // the state was, or will be
                return;
            }
            WriteKeptStatuses();
            if (std::exchange(missed_, false))
                emit CameBack();
            else
                SetRightIfOff(news);
        });
}

JobDatabase::PollAnswer JobDatabase::RunPoll(dao::Database &database, const Seen &seen, const Poll::Request &request)
{
    try {
        PollAnswer answer;
        answer.news = Poll::Run(database, *seen.poll, request);
        if (answer.news.changed && *seen.jobsMark != answer.news.jobsMark)
            answer.jobs = ReadJobList(database, seen, answer.news.jobsMark);
        // A file that was write-protected stays so for a connection.
        if (answer.news.refusedWrite && answer.news.refusedWrite->Kind() != dao::ErrorKind::Busy)
            database.Close();
        return answer;
    } catch (...) {
        *seen.poll = {}; // nobody hears of what it has seen
        throw;
    }
}

void JobDatabase::ForgetPolls()
{
    seen_.poll = Seen().poll; // the jobs have nothing to do with it
}

void JobDatabase::ReadUsers()
{
    link_.Ask(
        this, Presence::ReadUsers,
        [this](const Answer<QList<Presence::UserRow>> &answer) {
            if (answer.error)
                qCWarning(log).noquote() << answer.error->Text();
            else
                emit UsersRead(*answer.value);
        });
}

void JobDatabase::DeleteJob(QObject *context, const QString &item, std::function<void(bool)> done)
{
    link_.Ask(
        context, [item](dao::Database &database) { Projects::DeleteJob(database, item); },
        WhetherWritten(std::move(done)));
    FillJobList();
}

void JobDatabase::CreateJob(QObject *context, const JobItem &job, std::function<void(Projects::Creation)> done)
{
    const quint64 number = ++lastCreation_;
    creating_.emplace(
        number,
        [context = QPointer(context), done = std::move(done)](Projects::Creation creation) {
            if (context)
                done(creation);
        });
    link_.Ask(
        this, [job](dao::Database &database) { return Projects::AddJob(database, job); },
        [this, number](const Answer<Projects::Creation> &answer) {
            if (answer.error)
                qCWarning(log).noquote() << answer.error->Text();
            const auto waiting = creating_.extract(number);
            waiting.mapped()(answer.value.value_or(Projects::Creation::Failed));
        });
    FillJobList();
}

std::optional<LocalJobCopy::Snapshot> JobDatabase::RowsForLocalCopy(std::chrono::milliseconds limit)
{
    if (!CompanyJobs || identity_.OnNetworkDrive) // there the own file is everybody's
        return std::nullopt;
    const auto answer = link_.AskWithin(
        limit,
        [path = CompanyPath, own = OwnJobsFile()](dao::Database &database) -> std::optional<LocalJobCopy::Snapshot> {
            if (DataFiles::SameFile(path, own)) // it would replace itself
                return std::nullopt;
            return LocalJobCopy::Read(database);
        });
    if (!answer) {
        qCWarning(log) << CompanyPath << "does not answer: the local copy stays as it is";
        return std::nullopt;
    }
    if (answer->error) {
        qCWarning(log).noquote() << answer->error->Text();
        return std::nullopt;
    }
    return *answer->value;
}

bool JobDatabase::Close(std::chrono::milliseconds limit)
{
    for (QTimer *timer : {&searchTimer_, &retryTimer_, &judgeTimer_})
        timer->stop();
    return link_.Stop(limit);
}

void JobDatabase::UpdateLocalJobCopy(const LocalJobCopy::Snapshot &rows)
{
    try {
        LocalJobCopy::Write(identity_.InAppFolder(QStringLiteral("Blank Jobs.mdb")), OwnJobsFile(), rows);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
}
