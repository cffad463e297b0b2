#include "clock/ParkedRows.h"

#include "platform/dao/Completion.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/TableDef.h"

#include <QFileInfo>
#include <QSet>
#include <QSqlQuery>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString table = u"ParkedStemps"_s;

} // namespace

dao::TableDef ParkedRows::Layout()
{
    const auto text = [](const QString &name, bool notNull) { return dao::FieldDef{name, u"TEXT"_s, false, notNull}; };
    return {table,
            {text(u"StempId"_s, true),
             text(u"Person"_s, true),
             text(u"TimeFile"_s, true),
             {u"StoredId"_s, u"INTEGER"_s},
             text(u"JobID"_s, false),
             text(u"JobName"_s, false),
             {u"StempInTime"_s, u"REAL"_s},
             {u"StempOutTime"_s, u"REAL"_s}},
            {{u"StempId"_s, {u"StempId"_s}, true}}};
}

ParkedRows::ParkedRows(dao::Database &localDB, const QString &person, const QString &timeFile)
    : localDB_(&localDB), person_(person), timeFile_(timeFile)
{
}

QString ParkedRows::FileName() const
{
    return QFileInfo(localDB_->Path()).fileName();
}

QList<TimeRow> ParkedRows::Read()
{
    QList<TimeRow> rows;
    held_.clear();
    if (!localDB_->HasTable(table))
        return rows;
    localDB_->ForEach(u"SELECT StoredId, JobID, JobName, StempInTime, StempOutTime, StempId FROM ParkedStemps "
                      "WHERE Person = ? AND TimeFile = ? ORDER BY Id"_s,
                      {person_, timeFile_}, u"reading the parked time rows"_s, [&rows](const QSqlQuery &row) {
                          rows.append({row.value(0).toLongLong(), row.value(1).toString(), row.value(2).toString(),
                                       dao::ReadDateField(row.value(3)), dao::ReadDateField(row.value(4)),
                                       row.value(5).toString()});
                      });
    for (const TimeRow &row : std::as_const(rows))
        held_.insert(row.stempId, row.stempOutTime);
    return rows;
}

void ParkedRows::Keep(const QList<TimeRowPtr> &rows)
{
    if (std::all_of(rows.cbegin(), rows.cend(), [this](const TimeRowPtr &row) { return Holds(*row); }))
        return;
    dao::Transaction transaction(*localDB_, u"parking time rows"_s);
    dao::CompleteTable(*localDB_, Layout());
    for (const TimeRowPtr &row : rows)
        if (!Holds(*row))
            Put(*row);
    transaction.Commit();
    for (const TimeRowPtr &row : rows)
        held_.insert(row->stempId, row->stempOutTime);
}

void ParkedRows::Put(const TimeRow &row)
{
    // The row's place among the others stays.
    if (localDB_->Execute(u"UPDATE ParkedStemps SET StempOutTime = ? WHERE StempId = ?"_s,
                          {dao::DateField(row.stempOutTime), row.stempId}, u"bringing a parked time row up to date"_s)
        > 0)
        return;
    localDB_->Insert(u"INSERT INTO ParkedStemps (StempId, Person, TimeFile, StoredId, JobID, JobName, StempInTime, "
                     "StempOutTime) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s,
                     {row.stempId, person_, timeFile_, row.id, row.jobID, row.jobName, dao::DateField(row.stempInTime),
                      dao::DateField(row.stempOutTime)},
                     u"parking a time row"_s);
}

bool ParkedRows::Holds(const TimeRow &row) const
{
    const auto held = held_.constFind(row.stempId);
    return held != held_.cend() && *held == row.stempOutTime;
}

void ParkedRows::ForgetAllBut(const QList<TimeRowPtr> &rows)
{
    QHash<QString, std::optional<QDateTime>> left;
    for (const TimeRowPtr &row : rows)
        if (const auto held = held_.constFind(row->stempId); held != held_.cend())
            left.insert(held.key(), *held);
    if (left.size() == held_.size())
        return;
    dao::Transaction transaction(*localDB_, u"forgetting parked time rows"_s);
    for (auto held = held_.cbegin(); held != held_.cend(); ++held)
        if (!left.contains(held.key()))
            localDB_->Execute(u"DELETE FROM ParkedStemps WHERE StempId = ?"_s, {held.key()},
                              u"forgetting a parked time row"_s);
    transaction.Commit();
    held_ = left;
}
