#include "clock/TimeTable.h"

#include "platform/dao/DateValue.h"
#include "platform/system/TimeSource.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>
#include <QSqlQuery>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.clock")

// Short, as the window stands still meanwhile: a row that finds the file locked waits in memory, and is tried again.
constexpr std::chrono::milliseconds busyWait{250};
// At start an open row that is not seen would not be asked about.
constexpr std::chrono::milliseconds startWait{2000};

const QString &WindowQuery()
{
    static const QString query = u"SELECT * From Stemp WHERE Stemp.StempInTime>Now()-"_s;
    return query;
}

// An empty text, where Qt would bind a null one as no value at all.
QString TextField(const QString &text)
{
    return text.isNull() ? u""_s : text;
}

} // namespace

QString RollBackQuery(int days)
{
    return WindowQuery() + QString::number(days);
}

TimeTable::TimeTable(const TimeSource &time) : time_(time) {}

bool TimeTable::Open(const QString &path)
{
    Close();
    path_ = path;
    try {
        Connect(startWait);
        database_.SetBusyWait(busyWait);
    } catch (const dao::Error &error) {
        Failed(error);
    }
    return database_.IsOpen();
}

void TimeTable::Close()
{
    database_.Close();
    path_.clear();
    lastRead_.clear();
}

QList<TimeRow> TimeTable::Rows(const QString &rollBackQuery)
{
    try {
        EnsureOpen();
        // The query has no order of its own, and the engine may give the rows in that of their in-times, which is not that of
        // adding when the clock was set back. The "+" lets it still find them by the index of the in-times.
        lastRead_ = StoredRows(u'(' + rollBackQuery + u") ORDER BY +Id"_s, {}, u"reading the time rows"_s);
    } catch (const dao::Error &error) {
        Failed(error);
    }
    QList<TimeRow> rows = lastRead_;
    if (unsaved_.isEmpty())
        return rows;

    QSet<qint64> shown;
    for (TimeRow &row : rows) {
        if (const TimeRowPtr changed = Unsaved(row.id)) {
            row.stempOutTime = changed->stempOutTime;
            shown.insert(row.id);
        }
    }
    const int days = rollBackQuery.mid(WindowQuery().size()).toInt();
    const QDateTime begin = time_.Now().addDays(-days);
    for (const TimeRowPtr &row : std::as_const(unsaved_))
        if (!shown.contains(row->id) && row->stempInTime > begin)
            rows.append(*row);
    return rows;
}

TimeRowPtr TimeTable::OpenOrLastRow()
{
    const QString purpose = u"looking for the open time row"_s;
    QList<TimeRow> rows;
    try {
        EnsureOpen();
        rows = StoredRows(u"Stemp WHERE StempInTime IS NOT NULL AND StempOutTime IS NULL ORDER BY Id DESC LIMIT 1"_s,
                          {}, purpose);
        if (rows.isEmpty())
            rows = StoredRows(u"Stemp ORDER BY Id DESC LIMIT 1"_s, {}, purpose);
    } catch (const dao::Error &error) {
        Failed(error);
    }
    return rows.isEmpty() ? nullptr : std::make_shared<TimeRow>(rows.first());
}

TimeRowPtr TimeTable::Add(const QString &jobID, const QString &jobName, const QDateTime &in)
{
    unsaved_.append(std::make_shared<TimeRow>(TimeRow{0, jobID, jobName, in, std::nullopt}));
    return unsaved_.last();
}

void TimeTable::Complete(const TimeRowPtr &row, const QDateTime &out)
{
    row->stempOutTime = out;
    if (!unsaved_.contains(row))
        unsaved_.append(row);
}

bool TimeTable::Flush()
{
    if (unsaved_.isEmpty())
        return true;
    try {
        EnsureOpen();
        WriteUnsaved();
    } catch (const dao::Error &error) {
        Failed(error);
    }
    return unsaved_.isEmpty();
}

void TimeTable::EnsureOpen()
{
    // Where a file may be deleted while it is open, its connection would go on writing into nothing.
    if (!QFileInfo::exists(path_))
        database_.Close();
    if (!database_.IsOpen())
        Connect(busyWait);
}

void TimeTable::Connect(std::chrono::milliseconds wait)
{
    database_ = dao::Database::OpenDatabase(path_, wait);
    database_.RegisterFunctions([this] { return time_.Now(); });
}

QList<TimeRow> TimeTable::StoredRows(const QString &source, const QVariantList &values, const QString &purpose)
{
    QList<TimeRow> rows;
    try {
        database_.ForEach(u"SELECT Id, JobID, JobName, StempInTime, StempOutTime FROM "_s + source, values, purpose,
                          [&rows](const QSqlQuery &row) {
                              rows.append({row.value(0).toLongLong(), row.value(1).toString(), row.value(2).toString(),
                                           dao::ReadDateField(row.value(3)), dao::ReadDateField(row.value(4))});
                          });
        return rows;
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
    }
    // One job that is too large must not hide all other rows.
    rows.clear();
    const QStringList fields{u"JobID"_s, u"JobName"_s, u"StempInTime"_s, u"StempOutTime"_s};
    const auto text = [](const QVariant &value) {
        return dao::IsTooLarge(value) ? u"(too large to be read)"_s : value.toString();
    };
    for (const QVariantList &number : database_.Select(u"SELECT Id FROM "_s + source, values, purpose)) {
        const qint64 id = number.value(0).toLongLong();
        if (const QVariantList row = database_.SelectRow(u"Stemp"_s, fields, id, purpose); !row.isEmpty())
            rows.append({id, text(row[0]), text(row[1]), dao::ReadDateField(row[2]), dao::ReadDateField(row[3])});
    }
    return rows;
}

void TimeTable::WriteUnsaved()
{
    QList<qint64> ids; // given to the rows after the commit only: until then no row is stored
    dao::Transaction transaction(database_, u"storing time rows"_s);
    for (const TimeRowPtr &row : std::as_const(unsaved_))
        ids.append(Store(*row));
    transaction.Commit();

    for (qsizetype i = 0; i < ids.size(); ++i) {
        TimeRow &row = *unsaved_.at(i);
        row.id = ids.at(i);
        // Should the next read fail, the screen still shows the row as it is now.
        const auto read =
            std::find_if(lastRead_.begin(), lastRead_.end(), [&row](const TimeRow &each) { return each.id == row.id; });
        if (read != lastRead_.end())
            *read = row;
        else
            lastRead_.append(row);
    }
    unsaved_.clear();
}

qint64 TimeTable::Store(const TimeRow &row)
{
    if (row.id != 0) {
        // Another person on the same file, or another tool, may have deleted the row, and a new row may have got its key since.
        // The row is still this one while it has its job or, should that have been corrected, its in-time.
        const int changed = database_.Execute(
            u"UPDATE Stemp SET StempOutTime = ? WHERE Id = ? AND (ifnull(JobID, '') = ? OR StempInTime = ?)"_s,
            {dao::DateField(row.stempOutTime), row.id, TextField(row.jobID), dao::DateField(row.stempInTime)},
            u"completing a time row"_s);
        if (changed > 0)
            return row.id;
    }
    return database_.Insert(u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)"_s,
                            {TextField(row.jobID), TextField(row.jobName), dao::DateField(row.stempInTime),
                             dao::DateField(row.stempOutTime)},
                            u"adding a time row"_s);
}

void TimeTable::Failed(const dao::Error &error)
{
    qCWarning(log).noquote() << error.Text();
    damaged_ = error.Kind() == dao::ErrorKind::Corrupt;
    // A file that was replaced or whose drive failed needs a new connection; a lock only needs time.
    if (error.Kind() != dao::ErrorKind::Busy)
        database_.Close();
}

TimeRowPtr TimeTable::Unsaved(qint64 id) const
{
    const auto found =
        std::find_if(unsaved_.cbegin(), unsaved_.cend(), [id](const TimeRowPtr &row) { return row->id == id; });
    return found == unsaved_.cend() ? TimeRowPtr() : *found;
}
