#include "startup/JobDatabase.h"

#include "clock/JobLists.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"

#include <QDir>
#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr std::chrono::milliseconds waitLimit = 2s;     // what a file that does not answer may cost
constexpr std::chrono::milliseconds leastLimit = 250ms; // what is waited for in any case
constexpr std::chrono::seconds retryPeriod{10};         // between two tries to read the local copy's list
constexpr std::chrono::minutes searchPeriod{1};         // between two looks for a configured file that did not serve

std::chrono::steady_clock::time_point In(std::chrono::milliseconds limit)
{
    return std::chrono::steady_clock::now() + limit;
}

std::chrono::milliseconds Left(std::chrono::steady_clock::time_point deadline)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
}

auto WhetherWritten(std::function<void(bool)> done)
{
    return [done = std::move(done)](const Answer<void> &answer) {
        if (answer.error)
            qCWarning(log).noquote() << answer.error->Text();
        done(!answer.error);
    };
}

} // namespace

JobDatabase::JobDatabase(CompanyLink::Mode mode, const Identity &identity, JobLists &lists)
    : identity_(identity), lists_(lists), link_(mode), seen_(std::make_shared<Seen>()), nextLimit_(waitLimit)
{
    searchTimer_.setInterval(searchPeriod);
    connect(&searchTimer_, &QTimer::timeout, this, &JobDatabase::LookForConfigured);
    connect(&link_, &CompanyLink::Replaced, this, [this] { missed_ = true; });
}

void JobDatabase::Choose(const QString &configured)
{
    const Deadline deadline = In(std::exchange(nextLimit_, waitLimit));
    Take(configured, configured.isEmpty() ? Look() : Open(configured, deadline), deadline);
}

void JobDatabase::LookAt(const QString &configured)
{
    searchTimer_.stop(); // what it looked for is not wanted any more
    TryOut(configured, false);
}

void JobDatabase::LookForConfigured()
{
    if (!std::exchange(searching_, true))
        TryOut(configured_, true);
}

// Quietly: nothing comes of a file that does not serve, as it was told of when it was first looked for.
void JobDatabase::TryOut(const QString &path, bool quietly)
{
    wanted_ = path;
    link_.AskOf(
        path, this, [path, own = OwnJobsFile()](dao::Database &) { return DataFiles::SameFile(path, own); },
        [this, path, quietly](const Answer<bool> &answer) {
            if (quietly)
                searching_ = false;
            if (path != wanted_ || (quietly && answer.error))
                return;
            looked_ = LookOf(path, OwnJobsFile(), answer);
            emit Looked(path);
        });
}

void JobDatabase::ChooseLooked()
{
    if (!looked_)
        return;
    const Look look = *std::exchange(looked_, std::nullopt);
    const QString path = wanted_;
    if (look.serves)
        link_.Open(path);
    Take(path, look, In(waitLimit));
}

void JobDatabase::Take(const QString &configured, Look look, Deadline deadline)
{
    QString path = configured;
    EnterpriseOn = look.serves;
    if (!look.serves) {
        path = OwnJobsFile();
        link_.RunWithin(Left(deadline), path, [path, blank = identity_.InAppFolder(QStringLiteral("Blank Jobs.mdb"))] {
            if (!DataFiles::FileExists(path) && DataFiles::FileExists(blank))
                DataFiles::CopyTemplate(blank, path);
        });
        look = Open(path, deadline);
    }
    if (path != CompanyPath) {
        // A job of the file before must not be deleted from this one.
        listRead_ = false;
        ShowJobList({});
    }
    CompanyPath = path;
    LocalJobs = look.serves && look.isOwnFile && !identity_.OnNetworkDrive;
    CompanyJobs = look.serves && !LocalJobs;
    if (CompanyJobs)
        EnterpriseOn = true;

    missed_ = !look.answers;
    polling_ = searching_ = false; // what was under way is not heard any more
    wanted_.clear();
    seen_ = std::make_shared<Seen>();
    configured_ = configured;
    if (configured.isEmpty() || path == configured)
        searchTimer_.stop();
    else
        searchTimer_.start();
    if (const auto done = std::exchange(creating_, nullptr))
        done(Projects::Creation::Failed);
}

QString JobDatabase::OwnJobsFile() const
{
    return identity_.InAppFolder(QStringLiteral("Jobs.mdb"));
}

// What to make of the answer, or of none: whether the file is the own one.
JobDatabase::Look JobDatabase::LookOf(const QString &path, const QString &own,
                                      const std::optional<Answer<bool>> &answer)
{
    if (!answer || (answer->error && answer->error->Kind() == dao::ErrorKind::Busy)) {
        qCWarning(log) << path << "does not answer";
        return {false, true, QDir::cleanPath(path) == QDir::cleanPath(own)};
    }
    if (answer->error) {
        qCWarning(log).noquote() << answer->error->Text();
        return {};
    }
    return {true, true, *answer->value};
}

// Makes the file the one in use and waits for its answer.
JobDatabase::Look JobDatabase::Open(const QString &path, Deadline deadline)
{
    link_.Open(path);
    const QString own = OwnJobsFile();
    return LookOf(path, own, link_.AskWithin(Left(deadline), [path, own](dao::Database &) {
        return DataFiles::SameFile(path, own);
    }));
}

std::optional<QString> JobDatabase::MatchLoginToUser(const QString &path, const QString &login)
{
    const Deadline deadline = In(nextLimit_);
    link_.Open(path);
    const auto answer =
        link_.AskWithin(nextLimit_, [login](dao::Database &database) { return Presence::MatchLogin(database, login); });
    nextLimit_ = std::max(leastLimit, Left(deadline));
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
    link_.Ask(
        this,
        [user = identity_.UserInitials, fullName = identity_.UserFullName](dao::Database &database) {
            Presence::AddSelfToUsers(database, user, fullName);
        },
        [this](const Answer<void> &answer) {
            if (!answer.error)
                loggedError_.clear();
            MissedIfFailed(answer);
        });
}

void JobDatabase::WriteState(Presence::State state)
{
    if (!EnterpriseOn)
        return;
    link_.Ask(
        this,
        [user = identity_.UserInitials, state](dao::Database &database) {
            Presence::WriteState(database, user, state);
        },
        [this](const Answer<void> &answer) { MissedIfFailed(answer); });
}

void JobDatabase::WriteComment(QObject *context, const QString &user, const QString &comment,
                               std::function<void(bool)> done)
{
    if (!EnterpriseOn)
        return done(false);
    link_.Ask(
        context, [user, comment](dao::Database &database) { Presence::WriteComment(database, user, comment); },
        WhetherWritten(std::move(done)));
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
    if (EnterpriseOn)
        link_.Tell([user = identity_.UserInitials](dao::Database &database) {
            Presence::WriteState(database, user, Presence::State::Off);
        });
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
        [seen = seen_](dao::Database &database) {
            return ReadJobList(database, *seen, Presence::ReadJobsMark(database));
        },
        [this](const Answer<JobList> &answer) {
            if (!answer.error) {
                TakeJobList(*answer.value);
                return;
            }
            Missed(*answer.error);
            FillFromLocalCopy();
            if (!EnterpriseOn) // no poll tries again
                QTimer::singleShot(retryPeriod, this, [this] {
                    if (!listRead_ && !EnterpriseOn)
                        FillJobList();
                });
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
JobList JobDatabase::ReadJobList(dao::Database &database, Seen &seen, const QString &mark)
{
    JobList list; // made ready for searching here, beside the windows
    list.Assign(ReadProjects(database));
    seen.jobsMark = mark;
    return list;
}

void JobDatabase::TakeJobList(const JobList &list)
{
    listRead_ = true;
    ShowJobList(list);
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
        this, [seen = seen_, request](dao::Database &database) { return RunPoll(database, *seen, request); },
        [this](const Answer<PollAnswer> &answer) {
            polling_ = false;
            if (answer.error) {
                Missed(*answer.error);
                emit PollFailed(answer.error->Kind());
                return;
            }
            if (answer.value->jobs)
                TakeJobList(*answer.value->jobs);
            emit Polled(answer.value->news);
            if (answer.value->news.refusedWrite)
                missed_ = true; // the state was, or will be
            else if (std::exchange(missed_, false))
                emit CameBack();
        });
}

JobDatabase::PollAnswer JobDatabase::RunPoll(dao::Database &database, Seen &seen, const Poll::Request &request)
{
    try {
        PollAnswer answer;
        answer.news = Poll::Run(database, seen.poll, request);
        if (answer.news.changed && answer.news.jobsMark != seen.jobsMark)
            answer.jobs = ReadJobList(database, seen, answer.news.jobsMark);
        // A file that was write-protected stays so for a connection.
        if (answer.news.refusedWrite && answer.news.refusedWrite->Kind() != dao::ErrorKind::Busy)
            database.Close();
        return answer;
    } catch (...) {
        seen.poll = {}; // nobody hears of what it has seen
        throw;
    }
}

void JobDatabase::ForgetPolls()
{
    seen_ = std::make_shared<Seen>();
}

void JobDatabase::LookAtUsers()
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

void JobDatabase::DeleteJob(const QString &item)
{
    link_.Tell([item](dao::Database &database) { Projects::DeleteJob(database, item); });
    FillJobList();
}

void JobDatabase::CreateJob(QObject *context, const JobItem &job, std::function<void(Projects::Creation)> done)
{
    creating_ = [context = QPointer(context), done = std::move(done)](Projects::Creation creation) {
        if (context)
            done(creation);
    };
    link_.Ask(
        this, [job](dao::Database &database) { return Projects::AddJob(database, job); },
        [this](const Answer<Projects::Creation> &answer) {
            if (answer.error)
                qCWarning(log).noquote() << answer.error->Text();
            if (const auto waiting = std::exchange(creating_, nullptr))
                waiting(answer.value.value_or(Projects::Creation::Failed));
        });
    FillJobList();
}

bool JobDatabase::FileExists(const QString &path)
{
    if (path.isEmpty())
        return false;
    const auto exists = std::make_shared<std::atomic<bool>>(false);
    return link_.RunWithin(waitLimit, path, [exists, path] { *exists = DataFiles::FileExists(path); }) && *exists;
}

bool JobDatabase::IsOwnJobsFile(const QString &path)
{
    if (path.isEmpty())
        return false;
    const auto isOwn = std::make_shared<std::atomic<bool>>(false);
    return link_.RunWithin(waitLimit, path, [isOwn, path, own = OwnJobsFile()] {
        *isOwn = DataFiles::SameFile(path, own);
    }) && *isOwn;
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
    searchTimer_.stop();
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
