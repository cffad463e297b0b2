#include "clock/TimeTable.h"

#include "platform/dao/DateValue.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>
#include <QSqlQuery>
#include <QStringBuilder>
#include <QUuid>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.clock")

// Short, as the window stands still meanwhile: a row that finds the file locked is parked, and is tried again.
// In all, however many locks there are to be waited for.
constexpr std::chrono::milliseconds busyWait{250};
// For the rows on the screen, while those read last will do.
constexpr std::chrono::milliseconds repeatedWait{20};
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

// Whether a row of the file is the one that `row` was stored as. One without an id of its own is told by its key; another
// person on the same file, or another tool, may have deleted it, and a new row may have got its key since. It is still the
// same one while it has its job and in-time, or is open and has one of them, should the other have been corrected.
bool IsStoredAs(const TimeRow &stored, const TimeRow &row)
{
    if (!stored.stempId.isEmpty())
        return stored.stempId == row.stempId;
    const bool sameJob = stored.jobID == row.jobID;
    const bool sameTime = stored.stempInTime == row.stempInTime;
    return row.id != 0 && stored.id == row.id
           && ((sameJob && sameTime) || (!stored.stempOutTime && (sameJob || sameTime)));
}

QString NewStempId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

QString RollBackQuery(int days)
{
    return WindowQuery() + QString::number(days);
}

TimeTable::TimeTable(const TimeSource &time) : time_(time) {}

bool TimeTable::Open(const TimeFile &file)
{
    Close();
    file_ = file;
    if (file.localDB)
        parked_.emplace(*file.localDB, file.person, QFileInfo(file.path).fileName());
    TakeUpParked();
    WaitAtMost(startWait);
    try {
        EnsureOpen();
    } catch (const dao::Error &error) {
        Failed(error);
    }
    const bool isOpen = database_.IsOpen();
    Flush();
    return isOpen;
}

void TimeTable::Close()
{
    database_.Close();
    file_ = TimeFile();
    parked_.reset();
    lastRead_.clear();
}

void TimeTable::TakeUpParked()
{
    if (!parked_)
        return;
    try {
        for (const TimeRow &row : parked_->Read()) {
            const bool known = std::any_of(unsaved_.cbegin(), unsaved_.cend(),
                                           [&row](const TimeRowPtr &each) { return each->stempId == row.stempId; });
            if (!known)
                unsaved_.append(std::make_shared<TimeRow>(row));
        }
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
}

QList<TimeRow> TimeTable::Rows(const QString &rollBackQuery)
{
    WaitAtMost(unsaved_.isEmpty() ? busyWait : repeatedWait);
    try {
        EnsureOpen();
        // The query has no order of its own, and SQLite may give the rows in that of their in-times, which is not that of
        // adding when the clock was set back. The "+" lets it still find them by the index of the in-times.
        lastRead_ = StoredRows(u'(' + rollBackQuery + u") ORDER BY +Id"_s, {}, u"reading the time rows"_s);
    } catch (const dao::Error &error) {
        Failed(error);
    }
    QList<TimeRow> rows = lastRead_;
    if (unsaved_.isEmpty())
        return rows;

    QSet<QString> shown;
    for (TimeRow &row : rows) {
        if (const TimeRowPtr changed = UnsavedOf(row)) {
            if (changed->stempOutTime)
                row.stempOutTime = changed->stempOutTime;
            shown.insert(changed->stempId);
        }
    }
    const int days = rollBackQuery.mid(WindowQuery().size()).toInt();
    const QDateTime begin = time_.Now().addDays(-days);
    for (const TimeRowPtr &row : std::as_const(unsaved_))
        if (!shown.contains(row->stempId) && row->stempInTime > begin)
            rows.append(*row);
    return rows;
}

TimeRowPtr TimeTable::OpenOrLastRow()
{
    const auto newest = [this](const auto &isMeant) {
        const auto found = std::find_if(unsaved_.crbegin(), unsaved_.crend(), isMeant);
        return found == unsaved_.crend() ? TimeRowPtr() : *found;
    };
    if (const TimeRowPtr open = newest([](const TimeRowPtr &row) { return row->IsOpen(); }))
        return open;

    const QString purpose = u"looking for the open time row"_s;
    QList<TimeRow> rows;
    WaitAtMost(busyWait);
    try {
        EnsureOpen();
        // One that was completed here, but not yet there, is not open any more.
        const QString limit = QString::number(unsaved_.size() + 1);
        rows = StoredRows(u"Stemp WHERE StempInTime IS NOT NULL AND StempOutTime IS NULL ORDER BY Id DESC LIMIT "_s
                              + limit,
                          {}, purpose);
        rows.removeIf([this](const TimeRow &row) { return UnsavedOf(row) != nullptr; });
        if (rows.isEmpty()) {
            if (const TimeRowPtr added = newest([](const TimeRowPtr &row) { return row->id == 0; }))
                return added;
            rows = StoredRows(u"Stemp ORDER BY Id DESC LIMIT 1"_s, {}, purpose);
            if (const TimeRowPtr changed = rows.isEmpty() ? nullptr : UnsavedOf(rows.constFirst()))
                return changed;
        }
    } catch (const dao::Error &error) {
        Failed(error);
    }
    if (!rows.isEmpty())
        return std::make_shared<TimeRow>(rows.constFirst());
    return unsaved_.isEmpty() ? nullptr : unsaved_.constLast();
}

TimeRowPtr TimeTable::Add(const QString &jobID, const QString &jobName, const QDateTime &in)
{
    unsaved_.append(std::make_shared<TimeRow>(TimeRow{0, jobID, jobName, in, std::nullopt, NewStempId()}));
    return unsaved_.last();
}

void TimeTable::Complete(const TimeRowPtr &row, const QDateTime &out)
{
    row->stempOutTime = out;
    if (row->stempId.isEmpty())
        row->stempId = NewStempId();
    if (!unsaved_.contains(row))
        unsaved_.append(row);
}

bool TimeTable::Flush()
{
    if (!unsaved_.isEmpty()) {
        WaitAtMost(busyWait);
        // A connection to a file that was replaced, or whose drive failed, shows its fault only now: a new one may do.
        const bool wasOpen = database_.IsOpen();
        if (!TryToWrite() && wasOpen && !database_.IsOpen())
            TryToWrite();
    }
    Park();
    return unsaved_.isEmpty();
}

bool TimeTable::TryToWrite()
{
    try {
        EnsureOpen();
        WriteUnsaved();
        trouble_.clear();
        return true;
    } catch (const dao::Error &error) {
        Failed(error);
        return false;
    }
}

// Brings the parked rows in line with the unsaved ones. What was stored just now goes only here, after its commit: a process
// that dies in between stores it once more, under the same id.
void TimeTable::Park()
{
    if (!parked_)
        return;
    try {
        parked_->ForgetAllBut(unsaved_);
        parked_->Keep(unsaved_);
        parkTrouble_.clear();
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        parkTrouble_ = TroubleText(error.Kind());
    }
}

bool TimeTable::IsInMemoryOnly(const TimeRow &row) const
{
    return !parked_ || !parked_->Holds(row);
}

bool TimeTable::IsAllKept() const
{
    return std::none_of(
        unsaved_.cbegin(), unsaved_.cend(), [this](const TimeRowPtr &row) { return IsInMemoryOnly(*row); });
}

// Where some rows are in memory only, it counts those: the parked ones are not in danger.
UnsavedNotice TimeTable::Notice() const
{
    const qsizetype inMemory = std::count_if(unsaved_.cbegin(), unsaved_.cend(),
                                             [this](const TimeRowPtr &row) { return IsInMemoryOnly(*row); });
    return {inMemory > 0 ? static_cast<int>(inMemory) : UnsavedCount(),
            QFileInfo(file_.path).fileName(),
            trouble_,
            inMemory == 0,
            parked_ ? parked_->FileName() : QString(),
            parkTrouble_};
}

void TimeTable::EnsureOpen()
{
    // Where a file may be deleted while it is open, its connection would go on writing into nothing.
    const bool isThere = QFileInfo::exists(file_.path);
    const bool wasDamaged = std::exchange(damaged_, false);
    if (!isThere || wasDamaged)
        database_.Close();
    if (database_.IsOpen()) {
        database_.SetBusyWait(WaitLeft());
        database_.KeepJournalMode();
        return;
    }
    if (file_.makeSure && (!isThere || wasDamaged)) {
        const TimeFile::Outcome outcome = file_.makeSure(wasDamaged);
        notMade_ = outcome.trouble;
        if (!outcome.message.isEmpty())
            message_ = outcome.message;
    }
    Connect();
    notMade_.clear();
}

void TimeTable::Connect()
{
    database_ = dao::Database::OpenDatabase(file_.path, WaitLeft(), {}, {u"Stemp"_s});
    database_.RegisterFunctions([this] { return time_.Now(); });
    hasStempIds_ = database_.FieldNames(u"Stemp"_s).contains(u"StempId"_s);
}

QList<TimeRow> TimeTable::StoredRows(const QString &source, const QVariantList &values, const QString &purpose)
{
    QList<TimeRow> rows;
    try {
        const QString stempId = hasStempIds_ ? u"StempId"_s : u"NULL"_s;
        database_.ForEach(u"SELECT Id, JobID, JobName, StempInTime, StempOutTime, "_s + stempId + u" FROM "_s + source,
                          values, purpose, [&rows](const QSqlQuery &row) {
                              rows.append({row.value(0).toLongLong(), row.value(1).toString(), row.value(2).toString(),
                                           dao::ReadDateField(row.value(3)), dao::ReadDateField(row.value(4)),
                                           row.value(5).toString()});
                          });
        return rows;
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
    }
    // One job that is too large must not hide all other rows.
    rows.clear();
    QStringList fields{u"JobID"_s, u"JobName"_s, u"StempInTime"_s, u"StempOutTime"_s};
    if (hasStempIds_)
        fields.append(u"StempId"_s);
    const auto text = [](const QVariant &value) {
        return dao::IsTooLarge(value) ? Say("(too large to be read)") : value.toString();
    };
    for (const QVariantList &number : database_.Select(u"SELECT Id FROM "_s + source, values, purpose)) {
        const qint64 id = number.value(0).toLongLong();
        if (const QVariantList row = database_.SelectRow(u"Stemp"_s, fields, id, purpose); !row.isEmpty())
            rows.append({id, text(row[0]), text(row[1]), dao::ReadDateField(row[2]), dao::ReadDateField(row[3]),
                         row.value(4).toString()});
    }
    return rows;
}

void TimeTable::WriteUnsaved()
{
    QList<qint64> ids; // given to the rows after the commit only: until then no row is stored
    database_.SetBusyWait(WaitLeft());
    dao::Transaction transaction(database_, u"storing time rows"_s);
    CompleteLayout();
    const bool hadStempIds = std::exchange(hasStempIds_, true);
    try {
        for (const TimeRowPtr &row : std::as_const(unsaved_))
            ids.append(Store(*row));
        database_.SetBusyWait(WaitLeft());
        transaction.Commit();
    } catch (const dao::Error &) {
        hasStempIds_ = hadStempIds; // rolled back
        throw;
    }

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

// A file of an earlier version lacks the field; another copy may have added it meanwhile.
void TimeTable::CompleteLayout()
{
    if (hasStempIds_ || database_.FieldNames(u"Stemp"_s).contains(u"StempId"_s))
        return;
    const QString purpose = u"completing the time database"_s;
    database_.Execute(u"ALTER TABLE Stemp ADD COLUMN StempId TEXT"_s, {}, purpose);
    database_.Execute(u"CREATE UNIQUE INDEX IF NOT EXISTS StempId ON Stemp (StempId) WHERE StempId IS NOT NULL"_s, {},
                      purpose);
}

qint64 TimeTable::Store(const TimeRow &row)
{
    // What a stemp writes takes one statement: a row that is new, or one that was stored under its key.
    const auto insert = [&](const QString &verb) {
        return database_.Insert(
            verb % u" INTO Stemp (JobID, JobName, StempInTime, StempOutTime, StempId) VALUES (?, ?, ?, ?, ?)"_s,
            {TextField(row.jobID), TextField(row.jobName), dao::DateField(row.stempInTime),
             dao::DateField(row.stempOutTime), row.stempId},
            u"adding a time row"_s);
    };
    const QString purpose = u"completing a time row"_s;
    if (row.id == 0) {
        if (const qint64 id = insert(u"INSERT OR IGNORE"_s); id != 0)
            return id;
    } else if (row.stempOutTime
               && database_.Execute(u"UPDATE Stemp SET StempOutTime = ? WHERE Id = ? AND StempId = ?"_s,
                                    {dao::DateField(row.stempOutTime), row.id, row.stempId}, purpose)
                      > 0) {
        return row.id;
    }

    // A row that was parked may be stored already.
    const QList<QVariantList> stored =
        database_.Select(u"SELECT Id FROM Stemp WHERE StempId = ?"_s, {row.stempId}, u"looking for a time row"_s);
    if (!stored.isEmpty()) {
        const qint64 id = stored.constFirst().constFirst().toLongLong();
        // What is parked as open may have been completed since.
        if (row.stempOutTime)
            database_.Execute(u"UPDATE Stemp SET StempOutTime = ? WHERE Id = ?"_s,
                              {dao::DateField(row.stempOutTime), id}, purpose);
        return id;
    }
    if (row.id != 0 && CompleteByKey(row))
        return row.id;
    return insert(u"INSERT"_s);
}

bool TimeTable::CompleteByKey(const TimeRow &row)
{
    const QList<TimeRow> stored =
        StoredRows(u"Stemp WHERE Id = ?"_s, {row.id}, u"looking for a time row without an id of its own"_s);
    if (stored.isEmpty() || !IsStoredAs(stored.constFirst(), row))
        return false;
    database_.Execute(u"UPDATE Stemp SET StempOutTime = ?, StempId = ? WHERE Id = ?"_s,
                      {dao::DateField(row.stempOutTime), row.stempId, row.id}, u"completing a time row"_s);
    return true;
}

void TimeTable::Failed(const dao::Error &error)
{
    qCWarning(log).noquote() << error.Text();
    damaged_ = error.Kind() == dao::ErrorKind::Corrupt;
    trouble_ = notMade_.isEmpty() ? TroubleText(error.Kind()) : notMade_;
    // A file that was replaced or whose drive failed needs a new connection; a lock only needs time.
    if (error.Kind() != dao::ErrorKind::Busy)
        database_.Close();
}

void TimeTable::WaitAtMost(std::chrono::milliseconds wait)
{
    deadline_ = std::chrono::steady_clock::now() + wait;
}

std::chrono::milliseconds TimeTable::WaitLeft() const
{
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - std::chrono::steady_clock::now());
    return std::max(left, std::chrono::milliseconds(0));
}

TimeRowPtr TimeTable::UnsavedOf(const TimeRow &stored) const
{
    const auto found = std::find_if(unsaved_.cbegin(), unsaved_.cend(),
                                    [&stored](const TimeRowPtr &row) { return IsStoredAs(stored, *row); });
    return found == unsaved_.cend() ? TimeRowPtr() : *found;
}
