#pragma once

#include "clock/JobItem.h"

#include <QString>

class JobList;

namespace dao {
class Database;
}

// The company job list in the job database. What takes a database throws dao::Error.
namespace Projects {

enum class Creation {
    Stored,
    AlreadyUsed, // the id stands in the list, in whatever case
    Failed       // the file is locked, out of reach or can't be written
};

// An id as it can be stored: blanks in place of ":", which would break the job item, and of control characters; trimmed.
QString CleanID(const QString &typed);

// Whether an item of the list has this id, without regard to case (Danish letters included).
bool IsListed(const JobList &list, const QString &id);

// The id to suggest after `id` was stored: the next number after a whole number that is not 0, otherwise empty.
QString NextID(const QString &id);

// Stored or AlreadyUsed; another copy may have been faster than the list that was asked before.
Creation AddJob(dao::Database &database, const JobItem &job);

// Deletes the job of a job item; false when there is none, or when the item names no id.
bool DeleteJob(dao::Database &database, const QString &item);

} // namespace Projects
