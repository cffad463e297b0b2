#pragma once

#include <QList>
#include <QStringList>

namespace dao {

class Database;

struct Salvaged
{
    QString table;
    int rows = 0;
};

// Copies what can still be read of a damaged file into another one: each table, row by row, around the pages that are broken.
// Tables and fields that `into` lacks are made; rows that its indexes refuse are left out. Neither the damaged file nor a journal
// beside it is changed. Nothing is copied of a file that has none of `ownTables`. Gives the tables of which rows came along, in
// the file's order. Throws Error where `into` can't be written.
QList<Salvaged> Salvage(const QString &damaged, Database &into, const QStringList &ownTables);

} // namespace dao
