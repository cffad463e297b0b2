#include "board/PersonalStatus.h"

#include "platform/dao/Database.h"

using namespace Qt::Literals::StringLiterals;

QStringList ReadPersonalStatus(dao::Database &localDB)
{
    return localDB.Texts(u"SELECT Status FROM PersonalStatus ORDER BY Id"_s, u"reading the saved status texts"_s);
}

void AddPersonalStatus(dao::Database &localDB, const QString &status)
{
    localDB.Insert(u"INSERT INTO PersonalStatus (Status) VALUES (?)"_s, {status}, u"saving a status text"_s);
}

void RemovePersonalStatus(dao::Database &localDB, const QString &status)
{
    localDB.Execute(u"DELETE FROM PersonalStatus WHERE Status = ?"_s, {status}, u"removing a saved status text"_s);
}
