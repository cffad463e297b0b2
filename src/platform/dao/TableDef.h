#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace dao {

struct FieldDef
{
    QString name;
    QString type;            // as in SQL: "TEXT", "REAL", "INTEGER"
    bool ignoreCase = false; // compares without regard to (ASCII) case
    bool notNull = false;
};

// In the file an index's name is "<table>.<index>", as SQLite's index names are unique in a database; a
// Recordset finds it by its own name, also where a schema gave it the bare name.
struct IndexDef
{
    QString name;
    QStringList fields;
    bool unique = false;
};

struct TableDef
{
    QString name;
    QList<FieldDef> fields; // beside the "Id INTEGER PRIMARY KEY" that every table gets
    QList<IndexDef> indexes;
};

} // namespace dao
