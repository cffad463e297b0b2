#pragma once

#include "clock/TimeRow.h"

#include <QHash>
#include <QList>
#include <QString>

namespace dao {
class Database;
struct TableDef;
} // namespace dao

// The table "ParkedStemps" of the per-login database: time rows that their file did not take, until it does. One file may serve
// several people, so each row bears the person and the name of the time file. Each operation is one transaction and throws
// dao::Error.
class ParkedRows
{
public:
    static dao::TableDef Layout();

    ParkedRows(dao::Database &localDB, const QString &person, const QString &timeFile);

    QString FileName() const; // of the per-login database

    // The person's rows, in the order in which they were parked. The table may be missing.
    QList<TimeRow> Read();
    // Parks the rows as they are now, each under its own id: a row that is parked already is brought up to date. Makes the
    // table when it is missing.
    void Keep(const QList<TimeRowPtr> &rows);
    // Whether the table has the row as it is now.
    bool Holds(const TimeRow &row) const;
    // Forgets all rows but these. To be called once the time file has the others for good.
    void ForgetAllBut(const QList<TimeRowPtr> &rows);

private:
    void Put(const TimeRow &row);

    dao::Database *localDB_;
    QString person_;
    QString timeFile_;
    QHash<QString, std::optional<QDateTime>> held_; // what the table has: the rows' ids and out-times
};
