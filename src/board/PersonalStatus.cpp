#include "board/PersonalStatus.h"

#include "platform/dao/Database.h"

using namespace Qt::Literals::StringLiterals;

QStringList ReadPersonalStatus(dao::Database &localDB)
{
    QStringList texts;
    for (const QVariantList &row :
         localDB.SelectRows({u"PersonalStatus"_s, {u"Status"_s}}, u"reading the saved status texts"_s))
        if (!dao::IsTooLarge(row[0])) // it could not be sent
            texts.append(row[0].toString());
    return texts;
}

void AddPersonalStatus(dao::Database &localDB, const QString &status)
{
    localDB.Insert(u"INSERT INTO PersonalStatus (Status) VALUES (?)"_s, {status}, u"saving a status text"_s);
}

void RemovePersonalStatus(dao::Database &localDB, const QString &status)
{
    localDB.ExecuteOnLarge(u"DELETE FROM PersonalStatus WHERE Status = ?"_s, {status},
                           u"removing a saved status text"_s);
}
