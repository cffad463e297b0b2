#include "clock/Projects.h"

#include "clock/JobList.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QStringBuilder>

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

QString Projects::CleanID(const QString &typed)
{
    QString id = BlanksForControls(typed);
    return id.replace(u':', u' ').trimmed();
}

bool Projects::IsListed(const JobList &list, const QString &id)
{
    const QString begin = id % u" :"_s;
    return std::any_of(list.Items().cbegin(), list.Items().cend(),
                       [&](const QString &item) { return item.startsWith(begin, Qt::CaseInsensitive); });
}

QString Projects::NextID(const QString &id)
{
    bool isNumber = false;
    const qint64 number = id.toLongLong(&isNumber);
    if (!isNumber || number == 0 || number == std::numeric_limits<qint64>::max())
        return {};
    return QString::number(number + 1);
}

Projects::Creation Projects::AddJob(dao::Database &database, const JobItem &job)
{
    const QString purpose = u"creating a company job"_s;
    try {
        dao::Transaction transaction(database, purpose);
        // The index knows only the letters A to Z in both cases, so the ids are compared here.
        const QStringList ids = database.Texts(u"SELECT JobID FROM Projects"_s, purpose);
        if (ids.contains(job.id, Qt::CaseInsensitive))
            return Creation::AlreadyUsed;
        database.Insert(u"INSERT INTO Projects (JobID, JobName) VALUES (?, ?)"_s, {job.id, job.name}, purpose);
        transaction.Commit();
        return Creation::Stored;
    } catch (const dao::Error &error) {
        if (error.Kind() == dao::ErrorKind::Constraint)
            return Creation::AlreadyUsed;
        throw;
    }
}

bool Projects::DeleteJob(dao::Database &database, const QString &item)
{
    const qsizetype end = item.indexOf(QStringLiteral(" :"));
    if (end < 1)
        return false;
    return database.Execute(QStringLiteral("DELETE FROM Projects WHERE JobID = ?"), {item.left(end)},
                            QStringLiteral("deleting a company job"))
           > 0;
}
