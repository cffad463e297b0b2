#include "startup/Mending.h"

#include "platform/dao/Database.h"
#include "platform/dao/Salvage.h"
#include "platform/system/Say.h"
#include "startup/DataFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

const QStringList jobTables{u"Projects"_s, u"Users"_s};

QString MendedName(const QString &path)
{
    return path + u".mended"_s;
}

QString CopyJobs(const QString &damaged, dao::Database &into)
{
    QStringList parts;
    for (const dao::Salvaged &salvaged : dao::Salvage(damaged, into, jobTables))
        if (salvaged.table.compare(jobTables[0], Qt::CaseInsensitive) == 0)
            parts.append(Say("jobs: %1").arg(salvaged.rows));
        else if (salvaged.table.compare(jobTables[1], Qt::CaseInsensitive) == 0)
            parts.append(Say("people: %1").arg(salvaged.rows));
    if (parts.isEmpty())
        return Say("Nothing in it could be read.");
    return Say("What could still be read came along: %1.").arg(parts.join(u", "_s));
}

} // namespace

QString Mending::Mend(const QString &path, const QString &blank, const QDateTime &now, const Steps &steps)
{
    const QString mended = MendedName(path);
    const auto failed = [&](dao::ErrorKind kind) -> QString { // not a builder of temporaries
        return Say("The file %1 is damaged.").arg(path) + u"\n\n"_s + DataFiles::WhyNotMade(kind, blank, path);
    };
    QFile::remove(mended);
    DataFiles::RemoveJournals(mended); // of a mending that was ended while it copied
    QString copied;
    try {
        if (const std::optional<dao::ErrorKind> failure = steps.make(mended))
            return failed(*failure);
        dao::Database database = dao::Database::OpenDatabase(mended);
        copied = steps.copy(path, database);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        QFile::remove(mended);
        return failed(error.Kind());
    }
    const std::optional<QString> aside = DataFiles::SetAside(path, now);
    if (!aside) {
        QFile::remove(mended);
        return DataFiles::SetAsideMessage(path, aside);
    }
    FinishInterrupted(path);
    return DataFiles::SetAsideMessage(path, aside) + u"\n\n"_s + copied;
}

void Mending::FinishInterrupted(const QString &path)
{
    const QString mended = MendedName(path);
    if (QFileInfo::exists(path) || !QFileInfo::exists(mended))
        return;
    DataFiles::RemoveJournals(path); // the damaged file was set aside, but perhaps not yet its journal
    QFile::rename(mended, path);
}

std::optional<dao::ErrorKind> Mending::MakeJobs(const QString &blank, const QString &target)
{
    const QString made = target + u".made"_s;
    QFile::remove(made);
    std::optional<dao::ErrorKind> failure = DataFiles::CopyTemplate(blank, made);
    try {
        if (!failure) {
            dao::Database database = dao::Database::OpenDatabase(made);
            if (!database.HasTable(jobTables[0]) || !database.HasTable(jobTables[1]))
                failure = dao::ErrorKind::Corrupt;
        }
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        failure = error.Kind();
    }
    if (failure || !QFile::rename(made, target))
        QFile::remove(made);
    return QFileInfo::exists(target) ? std::nullopt : failure;
}

QString Mending::MendJobs(const QString &path, const QString &blank, const QDateTime &now)
{
    return Mend(path, blank, now, {[&blank](const QString &target) { return MakeJobs(blank, target); }, CopyJobs});
}
