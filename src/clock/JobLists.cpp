#include "clock/JobLists.h"

#include "clock/JobItem.h"
#include "platform/dao/Database.h"

#include <QSqlQuery>

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
    QStringList items;
    database.ForEach(QStringLiteral("SELECT JobID, JobName FROM Projects ORDER BY JobID"), {},
                     QStringLiteral("reading a job list"), [&items](const QSqlQuery &row) {
                         items.append(JobItemText(row.value(0).toString(), row.value(1).toString()));
                     });
    return items;
}
