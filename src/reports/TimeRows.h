#pragma once

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace dao {
class Database;
}

// A row of the time database as it stands there.
struct RawTimeRow
{
    QString jobID;
    QString jobName;
    std::optional<QDateTime> stempInTime;
    std::optional<QDateTime> stempOutTime; // nothing while the row is open
};

// The rows that a summary of that range counts, open ones too, by stemp-in. Throws dao::Error.
QList<RawTimeRow> ReadTimeRows(dao::Database &timeDb, const QDate &from, const QDate &to);
