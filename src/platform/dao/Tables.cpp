#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"

#include <QSqlQuery>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

// What tables a file has, and making them.

namespace dao {

namespace {

QString Declared(const FieldDef &field)
{
    return Quoted(field.name) % u' ' % field.type % (field.ignoreCase ? u" COLLATE NOCASE"_s : u""_s)
           % (field.notNull ? u" NOT NULL"_s : u""_s);
}

} // namespace

bool Database::HasTable(const QString &table)
{
    return !Select(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"_s, {table},
                   u"looking for a table"_s)
                .isEmpty();
}

QStringList Database::FieldNames(const QString &table)
{
    constexpr int nameColumn = 1;
    QStringList names; // by a plain pragma: a table of the file may bear the name of SQLite's function for it
    ForEach(u"PRAGMA table_info("_s % Quoted(table) % u')', {}, u"reading a table's fields"_s,
            [&names](const QSqlQuery &query) { names.append(query.value(nameColumn).toString()); });
    return names;
}

QList<FieldDef> Database::Fields(const QString &table)
{
    QList<FieldDef> fields;
    ForEach(u"PRAGMA table_info("_s % Quoted(table) % u')', {}, u"reading a table's fields"_s,
            [&](const QSqlQuery &query) {
                fields.append({query.value(1).toString(), query.value(2).toString()});
            });
    return fields;
}

void Database::CreateTableDef(const TableDef &table)
{
    const QString purpose = u"creating a table"_s;
    QString fields;
    for (const FieldDef &field : table.fields)
        fields += u", "_s % Declared(field);
    std::optional<Transaction> transaction; // unless it is part of the caller's
    if (!InTransaction())
        transaction.emplace(*this, purpose);
    Execute(u"CREATE TABLE "_s % Quoted(table.name) % u" (Id INTEGER PRIMARY KEY"_s % fields % u')', {}, purpose);
    for (const IndexDef &index : table.indexes)
        CreateIndex(table.name, index);
    if (transaction)
        transaction->Commit();
}

void Database::AddField(const QString &table, const FieldDef &field)
{
    const bool isText = field.type.startsWith("TEXT"_L1, Qt::CaseInsensitive);
    const QString filled = !field.notNull ? u""_s : isText ? u" DEFAULT ''"_s : u" DEFAULT 0"_s;
    Execute(u"ALTER TABLE "_s % Quoted(table) % u" ADD COLUMN "_s % Declared(field) % filled, {}, u"adding a field"_s);
}

void Database::CreateIndex(const QString &table, const IndexDef &index)
{
    QStringList fields;
    for (const QString &field : index.fields)
        fields.append(Quoted(field));
    Execute((index.unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) % Quoted(table % u'.' % index.name)
                % u" ON "_s % Quoted(table) % u" ("_s % fields.join(u", "_s) % u')',
            {}, u"creating an index"_s);
}

} // namespace dao
