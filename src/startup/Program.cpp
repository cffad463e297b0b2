#include "startup/Program.h"

#include "platform/dao/Error.h"
#include "platform/system/TimeSource.h"
#include "startup/Module1.h"

#include <QFileInfo>
#include <QLoggingCategory>

#include <cstdlib>

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr std::chrono::seconds untilSetAside = 2s;  // of a damaged time database, since it was last written
constexpr std::chrono::milliseconds exitLimit = 2s; // what a company file that does not answer may cost at exit

} // namespace

Program::Program(const System &usedSystem, const TimeSource &usedTime, CompanyLink::Mode mode)
    : system(usedSystem),
      time(usedTime),
      jobDatabase(mode, identity, lists),
      timeTable(usedTime),
      clock(timeTable, lists, usedTime, [this](const JobItem &job) { AddPersonalJob(job); })
{
}

void Program::FillPersonalList()
{
    try {
        lists.PersonalList.Assign(ReadProjects(LocalDB));
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
}

void Program::AddPersonalJob(const JobItem &job)
{
    try {
        PersonalJobsRs.AddNew();
        PersonalJobsRs.SetField(QStringLiteral("JobID"), job.id);
        PersonalJobsRs.SetField(QStringLiteral("JobName"), job.name);
        PersonalJobsRs.Update();
    } catch (const dao::Error &error) {
        // The list on the screen has the job; the table gets it with the next pick of a later run.
        qCWarning(log).noquote() << error.Text();
    }
}

bool Program::OpenTimeTable(const QString &path)
{
    return timeTable.Open(
        {path, identity.UserInitials, &LocalDB, [this](bool damaged) { return MakeSureOfTimeDb(damaged); }});
}

TimeFile::Outcome Program::MakeSureOfTimeDb(bool damaged)
{
    // A file that a person is just copying back is not whole either: a damaged one is to stay as it is for a while. One stemp
    // looks several times.
    const QFileInfo file(timeTable.Path());
    const std::pair found(file.size(), file.lastModified());
    if (damaged && found != damagedTimeDb_) {
        damagedTimeDb_ = found;
        damagedSince_ = time.Now();
    }
    if (damaged && std::abs(damagedSince_.secsTo(time.Now())) < untilSetAside.count())
        return {{}, TroubleText(dao::ErrorKind::Corrupt)};
    const Module1::TimeDbChoice choice = Module1::PrepareTimeDb(identity, time.Now(), damaged);
    return {choice.message, choice.trouble};
}

bool Program::CloseDatabases()
{
    if (closed_)
        return *closed_;
    timeTable.Close();
    const auto deadline = std::chrono::steady_clock::now() + exitLimit;
    const auto left = [deadline] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    };
    std::optional<LocalJobCopy::Snapshot> rows;
    if (!StartingUp && options.AutoUpdate)
        rows = jobDatabase.RowsForLocalCopy(left());
    closed_ = jobDatabase.Close(left());
    if (!*closed_)
        qCWarning(log) << "the job database does not answer at exit";
    if (rows)
        jobDatabase.UpdateLocalJobCopy(*rows);
    PersonalJobsRs.Close();
    LocalDB.Close();
    return *closed_;
}
