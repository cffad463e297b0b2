#pragma once

#include <QString>

namespace dao {
class Database;
}

// The company job list in the job database. Throws dao::Error.
namespace CompanyJobs {

// Deletes the job of a job item; false when there is none, or when the item names no id.
bool DeleteJob(dao::Database &database, const QString &item);

} // namespace CompanyJobs
