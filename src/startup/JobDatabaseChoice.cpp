#include "startup/JobDatabase.h"

#include "platform/system/Say.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"
#include "startup/Mending.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <memory>
#include <tuple>
#include <utility>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr std::chrono::milliseconds mendLimit = 20s; // a person has just agreed to it

constexpr std::chrono::milliseconds leastLimit = 250ms; // what is waited for in any case

std::chrono::steady_clock::time_point In(std::chrono::milliseconds limit)
{
    return std::chrono::steady_clock::now() + limit;
}

std::chrono::milliseconds Left(std::chrono::steady_clock::time_point deadline)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
}

} // namespace

void JobDatabase::Choose(const QString &configured)
{
    const Deadline deadline = In(std::exchange(nextLimit_, waitLimit));
    TakeIntoUse(configured, configured.isEmpty() ? Finding() : Open(configured, deadline), deadline);
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
            finding_ = FindingOf(path, OwnJobsFile(), answer);
            emit Looked(path);
        });
}

void JobDatabase::ChooseLooked()
{
    if (!finding_)
        return;
    const Finding finding = *std::exchange(finding_, std::nullopt);
    const QString path = wanted_;
    if (finding.serves)
        Use(path);
    TakeIntoUse(path, finding, In(waitLimit));
}

void JobDatabase::TakeIntoUse(const QString &configured, Finding finding, Deadline deadline)
{
    QString path = configured;
    EnterpriseOn = finding.serves;
    WhyNotUsed = configured.isEmpty() ? std::nullopt : finding.failure;
    OwnFileDamaged = false;
    OwnFileTrouble.clear();
    if (!finding.serves) {
        path = OwnJobsFile();
        finding = OpenOwnFile(deadline);
    }
    if (path != CompanyPath) {
        // A job of the file before must not be deleted from this one.
        listRead_ = false;
        ShowJobList({});
    }
    CompanyPath = path;
    LocalJobs = finding.serves && finding.isOwnFile && !identity_.OnNetworkDrive;
    CompanyJobs = finding.serves && !LocalJobs;
    if (CompanyJobs)
        EnterpriseOn = true;

    missed_ = !finding.answers;
    addedSelf_ = false;
    fileId_.clear();
    wanted_.clear();
    seen_ = {};
    retryTimer_.stop();
    configured_ = configured;
    if (configured.isEmpty() || path == configured)
        searchTimer_.stop();
    else
        searchTimer_.start();
}

JobDatabase::Finding JobDatabase::OpenOwnFile(Deadline deadline)
{
    const QString path = OwnJobsFile();
    const QString blank = BlankJobsFile();
    const auto notMade = std::make_shared<std::optional<dao::ErrorKind>>();
    const bool answered = link_.RunWithin(Left(deadline), path, [path, blank, notMade] {
        if (!QFileInfo::exists(path) && DataFiles::FileExists(blank))
            *notMade = Mending::MakeJobs(blank, path);
    });
    const Finding finding = Open(path, deadline);
    OwnFileDamaged = finding.failure == dao::ErrorKind::Corrupt || finding.failure == dao::ErrorKind::Foreign;
    if (answered && *notMade)
        OwnFileTrouble = DataFiles::WhyNotMade(**notMade, blank, path);
    else if (OwnFileDamaged)
        OwnFileTrouble = Say("The job list\n%1\nis damaged, or belongs to another program.").arg(path);
    else if (finding.failure == dao::ErrorKind::Folder)
        OwnFileTrouble =
            Say("Where the program keeps its file\n%1\nthere is a folder of that name. Please rename it.").arg(path);
    return finding;
}

QString JobDatabase::MendOwnFile(const QDateTime &now)
{
    const auto message = std::make_shared<QString>();
    const QString path = OwnJobsFile();
    if (!link_.RunWithin(mendLimit, path, [path, blank = BlankJobsFile(), now, message] {
            *message = Mending::MendJobs(path, blank, now);
        }))
        return Say("The drive of\n%1\ndoes not answer.").arg(path);
    return *message;
}

QString JobDatabase::BlankJobsFile() const
{
    return identity_.InAppFolder(QStringLiteral("Blank Jobs.mdb"));
}

QString JobDatabase::OwnJobsFile() const
{
    return identity_.InAppFolder(QStringLiteral("Jobs.mdb"));
}

// What to make of the answer, or of none: whether the file is the own one.
JobDatabase::Finding JobDatabase::FindingOf(const QString &path, const QString &own,
                                            const std::optional<Answer<bool>> &answer)
{
    const auto failed = [&](dao::ErrorKind kind) { return answer->error && answer->error->Kind() == kind; };
    // A write-ahead log goes when those who have the file open close it, as a lock does.
    if (!answer || failed(dao::ErrorKind::Busy) || failed(dao::ErrorKind::Stopped)
        || failed(dao::ErrorKind::JournalMode)) {
        qCWarning(log) << path << "does not answer";
        return {false, true, QDir::cleanPath(path) == QDir::cleanPath(own)};
    }
    if (answer->error) {
        qCWarning(log).noquote() << answer->error->Text();
        return {true, false, false, answer->error->Kind()};
    }
    return {true, true, *answer->value};
}

// Makes the file the one in use. What is under way in another one is not heard any more; in the same it is.
void JobDatabase::Use(const QString &path)
{
    if (path == link_.Path())
        return;
    link_.Open(path);
    polling_ = searching_ = false;
    if (judging_ && !toJudge_) // its answer is dropped, too
        toJudge_ = judging_;
    if (std::exchange(judging_, std::nullopt))
        QMetaObject::invokeMethod(this, &JobDatabase::JudgeNext, Qt::QueuedConnection);
    for (auto &[number, done] : std::exchange(creating_, {})) // told when the new file is settled
        QMetaObject::invokeMethod(
            this, [done = std::move(done)] { done(Projects::Creation::Failed); }, Qt::QueuedConnection);
}

// The same, and waits for its answer.
JobDatabase::Finding JobDatabase::Open(const QString &path, Deadline deadline)
{
    Use(path);
    const QString own = OwnJobsFile();
    return FindingOf(path, own, link_.AskWithin(Left(deadline), [path, own](dao::Database &) {
        return DataFiles::SameFile(path, own);
    }));
}

std::optional<QString> JobDatabase::MatchLoginToUser(const QString &path, const QString &login)
{
    const Deadline deadline = In(nextLimit_);
    Use(path);
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

void JobDatabase::Judge(const QString &path, std::function<void(const PathJudgement &)> done)
{
    toJudge_ = Judging{path, std::move(done)};
    JudgeNext();
}

void JobDatabase::JudgeNext()
{
    if (judging_ || !toJudge_)
        return;
    judging_ = std::exchange(toJudge_, std::nullopt);
    judgeTimer_.start();
    const bool onNetwork = identity_.OnNetworkDrive; // where "Jobs.mdb" is everybody's file, and no copy
    link_.AskOf(
        judging_->path, this,
        [path = judging_->path, own = OwnJobsFile(), onNetwork](dao::Database &database) {
            PathJudgement found{PathJudgement::Outcome::Found, DataFiles::SameFile(path, own)};
            found.canAutoUpdate = !found.isOwnFile && !onNetwork;
            std::tie(found.people, found.jobs) = Presence::CountUsersAndJobs(database);
            return found;
        },
        [this, number = ++lastJudging_](const Answer<PathJudgement> &answer) {
            if (number == lastJudging_ && judging_) // else it came too late
                TakeJudgement(answer.value ? *answer.value : JudgementOf(judging_->path, *answer.error));
        });
}

void JobDatabase::TakeJudgement(const PathJudgement &judgement)
{
    judgeTimer_.stop();
    if (const std::optional<Judging> judged = std::exchange(judging_, std::nullopt))
        judged->done(judgement);
    JudgeNext();
}

PathJudgement JobDatabase::JudgementOf(const QString &path, const dao::Error &error) const
{
    using Outcome = PathJudgement::Outcome;
    if (error.Kind() == dao::ErrorKind::CannotOpen)
        return {Outcome::Missing};
    const bool isLocked = error.Kind() == dao::ErrorKind::Busy;
    PathJudgement judgement{isLocked ? Outcome::Locked : Outcome::NoCompanyDatabase};
    judgement.isOwnFile = QDir::cleanPath(path) == QDir::cleanPath(OwnJobsFile());
    judgement.canAutoUpdate = isLocked && !judgement.isOwnFile && !identity_.OnNetworkDrive;
    return judgement;
}
