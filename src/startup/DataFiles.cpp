#include "startup/DataFiles.h"

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/system/Say.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStorageInfo>
#include <QStringList>
#include <QUuid>

#include <chrono>
#include <filesystem>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

// What SQLite keeps beside a file, and plays back into whatever file it finds there.
const QStringList journalSuffixes{QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};

const QStringList timeTables{QStringLiteral("Stemp")};
constexpr std::chrono::milliseconds busyWait{250};

// A new one each time: several programs may make the same file at the same moment.
QString TemporaryName(const QString &target)
{
    return target + QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::Id128);
}

// Byte by byte into a new file, so that permissions and group come from the folder and the umask. A template may be read-only,
// and may belong to who installed the program.
std::optional<dao::ErrorKind> CopyContent(const QString &source, const QString &target)
{
    constexpr qint64 most = 1 << 20;
    QFile from(source);
    QFile to(target);
    if (!from.open(QFile::ReadOnly))
        return dao::ErrorKind::CannotOpen;
    const bool isFull = QStorageInfo(QFileInfo(target).absolutePath()).bytesAvailable() == 0;
    if (!to.open(QFile::WriteOnly | QFile::NewOnly))
        return isFull ? dao::ErrorKind::Full : dao::ErrorKind::ReadOnly;
    while (!from.atEnd()) {
        const QByteArray block = from.read(most);
        if (block.isEmpty())
            return dao::ErrorKind::CannotOpen;
        if (to.write(block) != block.size())
            return dao::ErrorKind::Full;
    }
    if (!to.flush())
        return dao::ErrorKind::Full;
    return std::nullopt;
}

} // namespace

namespace DataFiles {

bool FileExists(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isReadable();
}

std::optional<dao::ErrorKind> CopyTemplate(const QString &source, const QString &target)
{
    if (QFileInfo::exists(target))
        return std::nullopt;
    const QString temporary = TemporaryName(target);
    RemoveJournals(target);
    std::optional<dao::ErrorKind> failure = CopyContent(source, temporary);
    if (!failure && QFile::rename(temporary, target))
        return std::nullopt;
    QFile::remove(temporary);
    if (QFileInfo::exists(target)) // another copy of the program was faster
        return std::nullopt;
    qCWarning(log) << "copying" << source << "to" << target << "failed";
    return failure.value_or(dao::ErrorKind::ReadOnly);
}

QString WhyNotMade(dao::ErrorKind failure, const QString &source, const QString &target)
{
    const QString name = QFileInfo(source).fileName();
    switch (failure) {
    case dao::ErrorKind::CannotOpen:
        return Say("The file\n%1\ncould not be made: its template \"%2\" is missing in the program folder, or you may "
                   "not "
                   "read it. Please install the program again.")
            .arg(target, name);
    case dao::ErrorKind::Corrupt:
        return Say("The file\n%1\ncould not be made: its template \"%2\" is damaged. Please install the program again.")
            .arg(target, name);
    case dao::ErrorKind::Full:
        return Say("The file\n%1\ncould not be made: the disk is full. Please make room on it.").arg(target);
    case dao::ErrorKind::ReadOnly:
        return Say("The file\n%1\ncould not be made: you may not write in this folder. Please ask for the right to do "
                   "so.")
            .arg(target);
    default:
        return Say("The file\n%1\ncould not be made: its drive does not work as it should.").arg(target);
    }
}

void CreateTimeDb(const QString &blank, const QString &target)
{
    const QString temporary = TemporaryName(target);
    RemoveJournals(target);
    if (const std::optional<dao::ErrorKind> failure = CopyTemplate(blank, temporary))
        throw dao::Error(*failure, QStringLiteral("copying the template of the time database"), target, blank);
    try {
        dao::Database copy = dao::Database::OpenDatabase(temporary, busyWait, {}, timeTables);
        if (!copy.HasTable(timeTables.constFirst()))
            throw dao::Error(dao::ErrorKind::Corrupt, QStringLiteral("emptying the new time database"), blank,
                             QStringLiteral("the template has no table of time rows"));
        copy.Execute(QStringLiteral("DELETE FROM Stemp"), {}, QStringLiteral("emptying the new time database"));
    } catch (const dao::Error &) {
        QFile::remove(temporary);
        RemoveJournals(temporary);
        throw;
    }
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
        dao::Database database = dao::Database::OpenDatabase(path, busyWait, {}, timeTables);
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

bool MendTimeDb(const QString &path)
{
    const QString purpose = QStringLiteral("mending the time database");
    try {
        dao::Database database = dao::Database::OpenDatabase(path, busyWait, {}, timeTables);
        database.Execute(QStringLiteral("REINDEX"), {}, purpose);
        const QList<QVariantList> found = database.Select(QStringLiteral("PRAGMA quick_check(1)"), {}, purpose);
        return !found.isEmpty() && found.constFirst().value(0).toString() == QStringLiteral("ok");
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        return error.Kind() != dao::ErrorKind::Corrupt;
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
    for (const QString &suffix : journalSuffixes)
        if (QFileInfo::exists(path + suffix))
            QFile::rename(path + suffix, target + suffix);
    return target;
}

QString SetAsideMessage(const QString &path, const std::optional<QString> &aside)
{
    if (!aside)
        return Say("The file %1 is damaged and could not be set aside.").arg(path);
    return Say("The file %1 is damaged. It was set aside as\n%2\nand a new one was made.").arg(path, *aside);
}

void RemoveJournals(const QString &path)
{
    for (const QString &suffix : journalSuffixes)
        QFile::remove(path + suffix);
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
