#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

namespace dao {
class Database;
}

// The local copy of the company's job list and users: a full snapshot, never a merge.
namespace LocalJobCopy {

struct Snapshot
{
    QList<QVariantList> projects; // JobID, JobName
    QList<QVariantList> users;    // User, Comment, State, FullName
};

Snapshot Read(dao::Database &jobDatabase); // throws dao::Error

// Makes the copy at `target` from the template `blank` beside it and renames it when it is complete: until then the old copy
// stays as it is. Throws dao::Error, with nothing left behind. Of two that write at the same time one wins.
void Write(const QString &blank, const QString &target, const Snapshot &snapshot);

} // namespace LocalJobCopy
