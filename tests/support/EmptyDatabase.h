#pragma once

#include "platform/dao/Database.h"

#include <QFile>

// A new database without tables: SQLite takes a file of no bytes for one.
inline dao::Database EmptyDatabase(const QString &path)
{
    QFile file(path);
    if (file.open(QFile::WriteOnly | QFile::NewOnly))
        file.close(); // before SQLite opens it
    return dao::Database::OpenDatabase(path);
}

inline QByteArray Content(const QString &path) // only while no connection is open
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
