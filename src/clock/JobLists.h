#pragma once

#include "clock/JobList.h"
#include "platform/dao/Recordset.h"

namespace dao {
class Database;
}

enum class ListMode { None = 0, Recent = 1, Personal = 2, Company = 3 };

// The pick lists of one running copy, and the rules by which picking a job keeps them.
struct JobLists
{
    JobList RecentList;
    JobList PersonalList;
    JobList CompanyList;
    ListMode Mode = ListMode::None;

    const JobList &Current() const; // the list of Mode
    const JobList &Of(ListMode mode) const;
};

// The job items of a database's table "Projects", ascending by JobID.
QStringList ReadProjects(dao::Database &database);
// The id under which that list shows a job whose own id is too large to be read.
QString TooLargeId(qint64 rowid);
