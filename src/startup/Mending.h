#pragma once

#include "platform/dao/Error.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

namespace dao {
class Database;
}

// Lets a new file take the place of a damaged one, with what can still be read of that.
namespace Mending {

struct Steps
{
    std::function<std::optional<dao::ErrorKind>(const QString &target)> make; // a file without rows; why it could not
    std::function<QString(const QString &damaged, dao::Database &into)> copy; // a sentence on what came along
};

// Sets the file at `path` aside once the new one is complete. If the program ends in the middle of that, its next start finds the
// damaged file, or FinishInterrupted puts the new one in its place. Gives what happened, for the person. Throws nothing.
QString Mend(const QString &path, const QString &blank, const QDateTime &now, const Steps &steps);

// Does the last step of a mending that was ended before it.
void FinishInterrupted(const QString &path);

// A job database made from its template; why it could not: see DataFiles::CopyTemplate, and Corrupt when the template is damaged.
std::optional<dao::ErrorKind> MakeJobs(const QString &blank, const QString &target);
// Mends the job database at `path`.
QString MendJobs(const QString &path, const QString &blank, const QDateTime &now);

} // namespace Mending
