#include "startup/LocalJobCopy.h"

#include "board/Poll.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "startup/DataFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <chrono>
#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::chrono::milliseconds oldCopyWait{500}; // for another program that is reading or writing the old copy

constexpr std::chrono::hours abandoned{1}; // no copy takes that long to make

// The copy while it is being made, under a name of its own: programs that share a folder may end at once. What a crash left
// behind is removed by the next copy.
class Unfinished
{
public:
    Unfinished(const QString &blank, const QString &target)
        : path_(target + u".unfinished-"_s + QUuid::createUuid().toString(QUuid::Id128))
    {
        if (const std::optional<dao::ErrorKind> failure = DataFiles::CopyTemplate(blank, path_))
            throw dao::Error(*failure, u"making the local copy of the job list"_s, blank,
                             u"the template could not be copied"_s);
    }
    ~Unfinished()
    {
        QFile::remove(path_);
        DataFiles::RemoveJournals(path_);
    }
    Unfinished(const Unfinished &) = delete;
    Unfinished &operator=(const Unfinished &) = delete;

    const QString &Path() const { return path_; }

    // To be called once this file is filled: by its time the age of the others is told, as the clock of a network drive need not
    // be that of this machine.
    void RemoveAbandoned(const QFileInfo &target) const
    {
        const QDateTime limit = QFileInfo(path_).lastModified().addDuration(-abandoned);
        const QStringList names{target.fileName() + u".unfinished-*"_s};
        for (const QFileInfo &file : target.dir().entryInfoList(names, QDir::Files))
            if (file.lastModified() < limit)
                QFile::remove(file.filePath());
    }

private:
    const QString path_;
};

void Fill(dao::Database &copy, const LocalJobCopy::Snapshot &snapshot)
{
    const QString purpose = u"filling the local copy of the job list"_s;
    dao::Transaction transaction(copy, purpose);
    copy.Execute(u"DELETE FROM Projects"_s, {}, purpose);
    copy.Execute(u"DELETE FROM Users"_s, {}, purpose);
    // A file from elsewhere may hold rows that the template has no place for, without an id or with the same one: these are
    // left out.
    for (const QVariantList &job : snapshot.projects)
        copy.Execute(u"INSERT OR IGNORE INTO Projects (JobID, JobName) VALUES (?, ?)"_s, job, purpose);
    for (const Presence::UserRow &user : snapshot.users)
        copy.Execute(
            u"INSERT OR IGNORE INTO Users (\"User\", Comment, State, FullName, Login) VALUES (?, ?, ?, ?, ?)"_s,
            {user.user, user.comment, user.state, user.fullName, user.login}, purpose);
    transaction.Commit();
}

// Brings the old copy to rest: a journal that a crash has left beside it is played back, and nobody else is at work in it as
// long as the connection that is given back stays open. Left there, the journal would be played back into the new copy. The
// connection is closed when there is no old copy, or only one that is no use.
dao::Database HoldOldCopy(const QString &target, const QString &fileId)
{
    const QString purpose = u"holding the old copy of the job list"_s;
    dao::Database old;
    try {
        if (QFileInfo::exists(target)) {
            old = dao::Database::OpenDatabase(target, oldCopyWait, {}, {u"Projects"_s, u"Users"_s});
            old.Execute(u"BEGIN EXCLUSIVE"_s, {}, purpose);
            // A drive may have several letters, a share several names, and each its own number for the same file.
            if (!fileId.isEmpty() && Poll::ReadFileId(old) == fileId)
                throw dao::Error(dao::ErrorKind::Other, purpose, target, u"it is the job database itself"_s);
            return old;
        }
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::Corrupt)
            throw;
        old.Close();
    }
    DataFiles::RemoveJournals(target);
    return old;
}

void Replace(const QString &source, const QString &target, const QString &fileId)
{
    dao::Database old = HoldOldCopy(target, fileId);
#ifdef Q_OS_WIN
    old.Close(); // no file that is open can be replaced here, so none is replaced in which another program is at work
#endif
    std::error_code error;
    std::filesystem::rename(QFileInfo(source).filesystemAbsoluteFilePath(),
                            QFileInfo(target).filesystemAbsoluteFilePath(), error);
    if (error)
        throw dao::Error(dao::ErrorKind::ReadOnly, u"replacing the local copy of the job list"_s, target,
                         QString::fromLocal8Bit(error.message().c_str()));
}

} // namespace

// Each statement reads one state of its table, and no row of the one table refers to the other.
LocalJobCopy::Snapshot LocalJobCopy::Read(dao::Database &jobDatabase)
{
    Snapshot snapshot{
        jobDatabase.SelectRows({u"Projects"_s, {u"JobID"_s, u"JobName"_s}, 0}, u"reading the jobs to copy"_s),
        Presence::ReadUsers(jobDatabase), Poll::ReadFileId(jobDatabase)};
    // What can't be read has no place in a copy.
    snapshot.projects.removeIf(
        [](const QVariantList &job) { return std::any_of(job.cbegin(), job.cend(), dao::IsTooLarge); });
    snapshot.users.removeIf([](const Presence::UserRow &user) { return !user.isNamed; });
    return snapshot;
}

void LocalJobCopy::Write(const QString &blank, const QString &target, const Snapshot &snapshot)
{
    const Unfinished file(blank, target);
    dao::Database copy =
        dao::Database::OpenDatabase(file.Path(), dao::Database::defaultBusyWait, {}, {u"Projects"_s, u"Users"_s});
    Fill(copy, snapshot);
    copy.Close();
    file.RemoveAbandoned(QFileInfo(target));
    Replace(file.Path(), target, snapshot.fileId);
}
