#include "platform/dao/Salvage.h"

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/dao/TableDef.h"

#include <QSqlQuery>
#include <QStringBuilder>

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace dao {

namespace {

const QString purpose = u"reading what is left of a damaged file"_s;

// Reads the rows of one table in the order of their numbers. Where a page is broken it goes on behind it.
class LeftRows
{
public:
    LeftRows(Database &database, const QString &table, const QString &columns)
        : database_(database),
          select_(u"SELECT _rowid_, "_s % columns % u" FROM "_s % Quoted(table)
                  % u" NOT INDEXED WHERE _rowid_ >= ? ORDER BY _rowid_"_s)
    {
    }

    void ForEach(const std::function<void(const QSqlQuery &)> &row)
    {
        constexpr int mostGaps = 10'000;
        std::optional<qint64> from = std::numeric_limits<qint64>::min();
        for (int gaps = 0; from && gaps < mostGaps; ++gaps) {
            qint64 next = *from;
            try {
                database_.ForEach(select_, {*from}, purpose, [&](const QSqlQuery &query) {
                    row(query);
                    next = query.value(0).toLongLong() + 1;
                });
                return;
            } catch (const Error &) {
                from = BehindTheGap(std::max<qint64>(next, 0));
            }
        }
    }

private:
    bool CanReadFrom(qint64 number)
    {
        try {
            database_.Select(select_ % u" LIMIT 1"_s, {number}, purpose);
            return true;
        } catch (const Error &) {
            return false;
        }
    }

    // The end of the gap that begins at `broken`: found by ever larger steps, then by halves.
    std::optional<qint64> BehindTheGap(qint64 broken)
    {
        qint64 readable = broken;
        for (qint64 step = 1; !CanReadFrom(readable = broken + step); step *= 2) {
            if (step > std::numeric_limits<qint64>::max() / 4)
                return std::nullopt;
            broken = readable;
        }
        while (broken + 1 < readable) {
            const qint64 middle = broken + (readable - broken) / 2;
            (CanReadFrom(middle) ? readable : broken) = middle;
        }
        return readable;
    }

    Database &database_;
    QString select_;
};

QList<FieldDef> FieldsLeft(Database &from, const QString &table)
{
    try {
        return from.Fields(table);
    } catch (const Error &) {
        return {};
    }
}

int CopyTable(Database &from, Database &into, const QString &table)
{
    const QList<FieldDef> fields = FieldsLeft(from, table);
    if (fields.isEmpty())
        return 0;
    if (!into.HasTable(table)) {
        TableDef made{table, fields, {}};
        made.fields.removeIf(
            [](const FieldDef &field) { return field.name.compare("Id"_L1, Qt::CaseInsensitive) == 0; });
        into.CreateTableDef(made);
    }
    const QStringList there = into.FieldNames(table);
    QStringList columns;
    for (const FieldDef &field : fields) {
        if (!there.contains(field.name, Qt::CaseInsensitive))
            into.AddField(table, field);
        columns.append(Quoted(field.name));
    }
    const QString insert = u"INSERT OR IGNORE INTO "_s % Quoted(table) % u" ("_s % columns.join(u", "_s)
                           % u") VALUES (?"_s % u", ?"_s.repeated(columns.size() - 1) % u')';
    QList<QVariantList> rows;
    LeftRows(from, table, columns.join(u", "_s)).ForEach([&](const QSqlQuery &query) {
        QVariantList row;
        for (int column = 1; column <= columns.size(); ++column)
            row.append(query.value(column));
        rows.append(row);
    });
    int copied = 0;
    for (const QVariantList &row : rows)
        copied += into.Execute(insert, row, u"copying a row of a damaged file"_s);
    return copied;
}

} // namespace

QList<Salvaged> Salvage(const QString &damaged, Database &into, const QStringList &ownTables)
{
    QStringList tables;
    Database from;
    try {
        from = Database::OpenDamaged(damaged);
        tables = from.Texts(u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' "
                            "ESCAPE '\\' AND sql LIKE 'CREATE TABLE%'"_s,
                            purpose);
    } catch (const Error &) {
        return {}; // nothing in it can be found
    }
    if (std::none_of(tables.cbegin(), tables.cend(),
                     [&](const QString &table) { return ownTables.contains(table, Qt::CaseInsensitive); }))
        return {};
    QList<Salvaged> salvaged;
    Transaction transaction(into, u"copying what is left of a damaged file"_s);
    for (const QString &table : tables)
        if (const int rows = CopyTable(from, into, table); rows > 0)
            salvaged.append({table, rows});
    transaction.Commit();
    return salvaged;
}

} // namespace dao
