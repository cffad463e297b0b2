#include "startup/DataFiles.h"

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <chrono>
#include <filesystem>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

constexpr QLatin1String journalSuffix("-journal");

QString TemporaryName(const QString &target)
{
    return target + QStringLiteral(".new");
}

} // namespace

namespace DataFiles {

bool FileExists(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isReadable();
}

bool CopyTemplate(const QString &source, const QString &target)
{
    if (QFileInfo::exists(target))
        return true;
    // Both left behind: a copy that was interrupted, and the journal of a file that was removed, which would be played back
    // into the new one.
    const QString temporary = TemporaryName(target);
    QFile::remove(temporary);
    QFile::remove(target + journalSuffix);
    if (!QFile::copy(source, temporary)) {
        qCWarning(log) << "copying" << source << "to" << target << "failed";
        return false;
    }
    // A template on a read-only medium must not make its copies read-only.
    QFile::setPermissions(temporary, QFile::permissions(temporary) | QFile::WriteOwner | QFile::WriteUser);
    if (QFile::rename(temporary, target))
        return true;
    QFile::remove(temporary);
    if (QFileInfo::exists(target)) // another copy of the program was faster
        return true;
    qCWarning(log) << "renaming the copy of" << source << "to" << target << "failed";
    return false;
}

void CreateTimeDb(const QString &blank, const QString &target)
{
    const QString temporary = TemporaryName(target);
    QFile::remove(temporary);
    QFile::remove(target + journalSuffix);
    if (!CopyTemplate(blank, temporary))
        throw dao::Error(dao::ErrorKind::CannotOpen, QStringLiteral("copying the template of the time database"),
                         target, blank);
    dao::Database copy = dao::Database::OpenDatabase(temporary);
    copy.Execute(QStringLiteral("DELETE FROM Stemp"), {}, QStringLiteral("emptying the new time database"));
    copy.Close();
    if (QFile::rename(temporary, target))
        return;
    QFile::remove(temporary);
    if (!FileExists(target)) // else another copy of the program was faster
        throw dao::Error(dao::ErrorKind::ReadOnly, QStringLiteral("making the time database"), target,
                         QStringLiteral("the new file could not be renamed"));
}

bool IsDamagedTimeDb(const QString &path)
{
    try {
        // A file that is locked is none the worse for it, and is waited for when it is opened for use.
        dao::Database database = dao::Database::OpenDatabase(path, std::chrono::milliseconds(250));
        if (!database.HasTable(QStringLiteral("Stemp")))
            return true;
        database.Select(QStringLiteral("SELECT count(StempInTime), count(JobName) FROM Stemp NOT INDEXED"), {},
                        QStringLiteral("reading the time database through"));
        return false;
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::Corrupt)
            return false;
        qCWarning(log).noquote() << error.Text();
        return true;
    }
}

std::optional<QString> SetAside(const QString &path, const QDateTime &now)
{
    const QString stem = path + QStringLiteral(".damaged-") + now.toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString target = stem;
    for (int i = 2; QFileInfo::exists(target); ++i)
        target = stem + QLatin1Char('-') + QString::number(i);
    if (!QFile::rename(path, target)) {
        qCWarning(log) << "setting aside" << path << "failed";
        return std::nullopt;
    }
    // A journal belongs to its file: left behind, it would be played back into the new one.
    if (QFileInfo::exists(path + journalSuffix))
        QFile::rename(path + journalSuffix, target + journalSuffix);
    return target;
}

bool SameFile(const QString &a, const QString &b)
{
    if (QDir::cleanPath(a) == QDir::cleanPath(b))
        return true;
    std::error_code error;
    return std::filesystem::equivalent(QFileInfo(a).filesystemAbsoluteFilePath(),
                                       QFileInfo(b).filesystemAbsoluteFilePath(), error)
           && !error;
}

} // namespace DataFiles
