#include "clock/CompanyJobs.h"

#include "platform/dao/Database.h"

bool CompanyJobs::DeleteJob(dao::Database &database, const QString &item)
{
    const qsizetype end = item.indexOf(QStringLiteral(" :"));
    if (end < 1)
        return false;
    return database.Execute(QStringLiteral("DELETE FROM Projects WHERE JobID = ?"), {item.left(end)},
                            QStringLiteral("deleting a company job"))
           > 0;
}
