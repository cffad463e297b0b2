#pragma once

#include "platform/dao/Salvage.h"

#include <QStringList>

namespace dao {
class Database;
}

// The tables of the per-login database, apart from the texts of the windows, whose tables come into being as the windows load.
namespace PersonalFile {

QStringList OwnTables(); // by any of them a file is known as one

// Makes tables, fields and indexes that the file lacks, in one order and each table in a transaction of its own. An empty file
// becomes a new one. Throws dao::Error.
void Complete(dao::Database &localDB);

// Copies what can still be read of a damaged file. A sentence on what came along, for the person. Throws dao::Error.
QString Salvage(const QString &damaged, dao::Database &localDB);

} // namespace PersonalFile
