#include "reports/TimeRows.h"

#include "platform/dao/Database.h"
#include "platform/dao/DateLiterals.h"
#include "platform/dao/DateValue.h"
#include "reports/HoursQuery.h"

#include <QSqlQuery>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

QList<RawTimeRow> ReadTimeRows(dao::Database &timeDb, const QDate &from, const QDate &to)
{
    QList<RawTimeRow> rows;
    const QString purpose = u"reading the time rows of a range"_s;
    const QString statement =
        dao::TranslateDateLiterals(u"SELECT JobID, JobName, StempInTime, StempOutTime "_s
                                   % RowsInRange(SplitDates(from, to)) % u" ORDER BY StempInTime, Id"_s);
    timeDb.OnLarge(purpose, [&](bool again) {
        rows.clear();
        timeDb.ForEach((again ? LargeJobsNamed() : QString()) + statement, {}, purpose, [&rows](const QSqlQuery &row) {
            rows.append({row.value(0).toString(), row.value(1).toString(), dao::ReadDateField(row.value(2)),
                         dao::ReadDateField(row.value(3))});
        });
    });
    return rows;
}
