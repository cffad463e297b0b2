#include "clock/JobLists.h"

#include "platform/dao/Database.h"

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
    // Put together where they are read, as JobItemText does.
    return database.Texts(
        QStringLiteral("SELECT ifnull(JobID, '') || ' : ' || ifnull(JobName, '') FROM Projects ORDER BY JobID"),
        QStringLiteral("reading a job list"));
}
