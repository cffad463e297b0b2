#include "board/MessageTables.h"

#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/dao/TableDef.h"

#include <QSqlQuery>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

bool HasField(const QStringList &fields, const QString &field)
{
    return fields.contains(field, Qt::CaseInsensitive);
}

// Any other table may have been put into the file by another program.
bool IsMessageTable(const QStringList &fields)
{
    return HasField(fields, u"From"_s) && HasField(fields, u"Message"_s);
}

// SQLite refuses tables of the first kind; those of the second would hide its own functions from other programs.
bool BelongsToSQLite(const QString &name)
{
    return name.startsWith("sqlite_"_L1, Qt::CaseInsensitive) || name.startsWith("pragma_"_L1, Qt::CaseInsensitive);
}

} // namespace

MessageTables::MessageTables(dao::Database &database) : database_(database)
{
    // Where names differ in Danish letters' case only, the table that was made first counts, for every copy. Views and
    // indexes take names from tables, triggers don't.
    database_.ForEach(u"SELECT name, type = 'table' FROM sqlite_master WHERE type <> 'trigger' ORDER BY rowid DESC"_s,
                      {}, u"reading the names of the tables"_s, [this](const QSqlQuery &query) {
                          const QString name = query.value(0).toString();
                          names_.insert(name.toUpper(), query.value(1).toBool() ? name : QString());
                      });
}

std::optional<QString> MessageTables::Find(const QString &user) const
{
    const QString name = names_.value(user.toUpper());
    if (name.isEmpty() || !IsMessageTable(database_.FieldNames(name)))
        return std::nullopt;
    return name;
}

std::optional<QString> MessageTables::Make(const QString &user)
{
    const QString key = user.toUpper();
    if (!names_.contains(key)) {
        if (user.isEmpty() || user.contains(QChar::Null) || BelongsToSQLite(user)
            || user.size() > Presence::longestName)
            return std::nullopt;
        database_.CreateTableDef(
            {user, {{u"From"_s, u"TEXT"_s, true}, {u"Message"_s, u"TEXT"_s}, {u"MessageId"_s, u"TEXT"_s}}, {}});
        names_.insert(key, user);
        MakeIndex(user);
        return user;
    }
    const QString name = names_.value(key);
    const QStringList fields = name.isEmpty() ? QStringList() : database_.FieldNames(name);
    if (!IsMessageTable(fields))
        return std::nullopt;
    if (!HasField(fields, u"MessageId"_s))
        database_.Execute(u"ALTER TABLE "_s % dao::Quoted(name) % u" ADD COLUMN MessageId TEXT"_s, {},
                          u"adding the ids of messages"_s);
    MakeIndex(name);
    return name;
}

// Where thousands of messages wait, each would be looked for among all.
void MessageTables::MakeIndex(const QString &table)
{
    const QString index = table % u".MessageId"_s;
    if (names_.contains(index.toUpper()))
        return;
    try {
        database_.Execute(u"CREATE INDEX IF NOT EXISTS "_s % dao::Quoted(index) % u" ON "_s % dao::Quoted(table)
                              % u" (MessageId)"_s,
                          {}, u"making an index of messages"_s);
        names_.insert(index.toUpper(), {});
    } catch (const dao::Error &error) {
        // One that another program has put there may be too large for it. Without an index it is only slower.
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
    }
}

void MessageTables::DropEmpty(const QString &user)
{
    const std::optional<QString> name = Find(user);
    if (!name)
        return;
    const QString purpose = u"deleting a user's message table"_s;
    const QString table = dao::Quoted(*name);
    if (!database_.Select(u"SELECT 1 FROM "_s % table % u" LIMIT 1"_s, {}, purpose).isEmpty())
        return;
    database_.Execute(u"DROP TABLE "_s % table, {}, purpose);
    names_.remove(user.toUpper());
}
