#pragma once

#include "board/Presence.h"

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
    QList<Presence::UserRow> users;
    QString fileId; // of the file they come from; empty when it has none yet
};

Snapshot Read(dao::Database &jobDatabase); // throws dao::Error

// Makes the copy at `target` from the template `blank` beside it and renames it when it is complete: until then the old copy
// stays as it is. Throws dao::Error, with nothing left behind, also when `target` is the file that the snapshot comes from, under
// a name that did not show it. Of two that write at the same time one wins.
void Write(const QString &blank, const QString &target, const Snapshot &snapshot);

} // namespace LocalJobCopy
