#include "clock/JobLists.h"

#include "clock/JobItem.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/system/Say.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.clock")

} // namespace

const JobList &JobLists::Current() const
{
    return Of(Mode);
}

const JobList &JobLists::Of(ListMode mode) const
{
    static const JobList none;
    switch (mode) {
    case ListMode::Recent:
        return RecentList;
    case ListMode::Personal:
        return PersonalList;
    case ListMode::Company:
        return CompanyList;
    case ListMode::None:
        break;
    }
    return none;
}

QStringList ReadProjects(dao::Database &database)
{
    const QString purpose = QStringLiteral("reading a job list");
    try {
        // Put together where they are read, as JobItemText does.
        return database.Texts(
            QStringLiteral("SELECT ifnull(JobID, '') || ' : ' || ifnull(JobName, '') FROM Projects ORDER BY JobID"),
            purpose);
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
        qCWarning(log).noquote() << error.Text();
    }
    const QStringList fields{QStringLiteral("rowid"), QStringLiteral("JobID"), QStringLiteral("JobName")};
    QStringList items;
    for (const QVariantList &row : database.SelectRows({QStringLiteral("Projects"), fields, 1}, purpose))
        items.append(JobItemText(dao::IsTooLarge(row[1]) ? TooLargeId(row[0].toLongLong()) : row[1].toString(),
                                 dao::IsTooLarge(row[2]) ? Say("(too large to be read)") : row[2].toString()));
    return items;
}

QString TooLargeId(qint64 rowid)
{
    return Say("(too large, row %1)").arg(rowid);
}
