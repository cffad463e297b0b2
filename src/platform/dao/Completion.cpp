#include "platform/dao/Completion.h"

#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"

#include <QStringBuilder>

#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace dao {

namespace {

const QString purpose = u"completing a table"_s;

// The Id that is the row's own number, and so lives through a VACUUM and numbers new rows by itself.
bool HasId(Database &database, const QString &table)
{
    int keys = 0;
    bool isKey = false;
    for (const QVariantList &column : database.Select(u"PRAGMA table_info("_s % Quoted(table) % u')', {}, purpose)) {
        const bool isId = column[1].toString().compare("Id"_L1, Qt::CaseInsensitive) == 0
                          && column[2].toString().compare("INTEGER"_L1, Qt::CaseInsensitive) == 0;
        const bool inKey = column[5].toInt() > 0;
        keys += inKey ? 1 : 0;
        isKey = isKey || (isId && inKey);
    }
    return isKey && keys == 1;
}

bool Contains(const QList<FieldDef> &fields, const QString &name)
{
    return std::any_of(
        fields.cbegin(), fields.cend(),
        [&name](const FieldDef &field) { return field.name.compare(name, Qt::CaseInsensitive) == 0; });
}

QString Joined(const QList<FieldDef> &fields)
{
    QStringList names;
    for (const FieldDef &field : fields)
        names.append(Quoted(field.name));
    return names.join(u", "_s);
}

// With all rows, in their order, under an Id of their own.
void MakeAnew(Database &database, const TableDef &wanted, QList<FieldDef> there)
{
    there.removeIf([](const FieldDef &field) { return field.name.compare("Id"_L1, Qt::CaseInsensitive) == 0; });
    TableDef made{wanted.name % u" with an Id"_s, wanted.fields, {}};
    for (const FieldDef &field : there)
        if (!Contains(wanted.fields, field.name))
            made.fields.append(field);
    database.CreateTableDef(made);
    const QString fields = Joined(there);
    database.Execute(u"INSERT OR IGNORE INTO "_s % Quoted(made.name) % u" ("_s % fields % u") SELECT "_s % fields
                         % u" FROM "_s % Quoted(wanted.name),
                     {}, purpose);
    database.Execute(u"DROP TABLE "_s % Quoted(wanted.name), {}, purpose);
    database.Execute(u"ALTER TABLE "_s % Quoted(made.name) % u" RENAME TO "_s % Quoted(wanted.name), {}, purpose);
}

bool HasIndex(Database &database, const QString &table, const IndexDef &index)
{
    const QList<QVariantList> there = database.Select(u"PRAGMA index_list("_s % Quoted(table) % u')', {}, purpose);
    return std::any_of(there.cbegin(), there.cend(), [&](const QVariantList &candidate) {
        const QString name = candidate[1].toString();
        return name.compare(index.name, Qt::CaseInsensitive) == 0
               || name.compare(table % u'.' % index.name, Qt::CaseInsensitive) == 0;
    });
}

void MakeIndex(Database &database, const QString &table, const IndexDef &index)
{
    QStringList keys;
    for (const QString &field : index.fields)
        keys.append(Quoted(field));
    const QString name = Quoted(table);
    if (index.unique)
        database.Execute(u"DELETE FROM "_s % name % u" WHERE Id NOT IN (SELECT min(Id) FROM "_s % name % u" GROUP BY "_s
                             % keys.join(u", "_s) % u')',
                         {}, purpose);
    database.CreateIndex(table, index);
}

} // namespace

bool CompleteTable(Database &database, const TableDef &wanted)
{
    const auto complete = [&] {
        const bool makes = !database.HasTable(wanted.name);
        if (makes)
            database.CreateTableDef(wanted);
        QList<FieldDef> there = database.Fields(wanted.name);
        bool changes = makes;
        if (!HasId(database, wanted.name)) {
            MakeAnew(database, wanted, there);
            there = wanted.fields;
            changes = true;
        }
        for (const FieldDef &field : wanted.fields) {
            if (Contains(there, field.name))
                continue;
            database.AddField(wanted.name, field);
            changes = true;
        }
        for (const IndexDef &index : wanted.indexes) {
            if (HasIndex(database, wanted.name, index))
                continue;
            MakeIndex(database, wanted.name, index);
            changes = true;
        }
        return changes;
    };
    if (database.InTransaction())
        return complete();
    Transaction transaction(database, purpose);
    const bool changes = complete();
    if (changes)
        transaction.Commit();
    return changes;
}

} // namespace dao
