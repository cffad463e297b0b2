#pragma once

#include <QString>
#include <QStringList>

namespace dao {
class Database;
}

// The saved status texts of the per-login database, table "PersonalStatus". All of these throw dao::Error.
QStringList ReadPersonalStatus(dao::Database &localDB); // in the order in which they were saved
void AddPersonalStatus(dao::Database &localDB, const QString &status);
void RemovePersonalStatus(dao::Database &localDB, const QString &status); // however often it was saved
