#include "clock/Projects.h"

#include "clock/JobList.h"
#include "clock/JobLists.h"
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
        const QList<QVariantList> ids = database.SelectRows({u"Projects"_s, {u"JobID"_s}}, purpose);
        if (std::any_of(ids.cbegin(), ids.cend(), [&job](const QVariantList &row) {
                return row[0].toString().compare(job.id, Qt::CaseInsensitive) == 0;
            }))
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
    const qsizetype end = item.indexOf(u" :"_s);
    if (end < 1)
        return false;
    const QString purpose = u"deleting a company job"_s;
    const QString id = item.left(end);
    if (database.ExecuteOnLarge(u"DELETE FROM Projects WHERE JobID = ?"_s, {id}, purpose) > 0)
        return true;
    for (const QVariantList &row : database.SelectRows({u"Projects"_s, {u"rowid"_s, u"JobID"_s}}, purpose))
        if (dao::IsTooLarge(row[1]) && TooLargeId(row[0].toLongLong()) == id)
            return database.ExecuteOnLarge(u"DELETE FROM Projects WHERE rowid = ?"_s, {row[0]}, purpose) > 0;
    return false;
}
