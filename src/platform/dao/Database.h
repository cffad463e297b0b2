#pragma once

#include "platform/dao/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QSqlQuery;
struct sqlite3_stmt;

namespace dao {

class Recordset;
struct FieldDef;
struct IndexDef;
struct TableDef;

enum class HeldFailure {
    None,
    HeldByAnotherCopy, // a running copy of this program holds the file
    InUseElsewhere,    // another program has it open, or the drive grants no locks
    Damaged,           // no database, a broken one, or one with none of the tables asked for; nothing in it was changed
    NotWritable,       // the file or its folder can't be written, the disk is full, or the drive fails: see Held::kind
    Missing
};
struct Held;

// Runs before every statement of every connection in this process, COMMIT included, on that connection's thread. For tests:
// they count, throw an Error, or end the process there. To be set before the first connection is opened.
void SetStatementHook(void (*hook)());

// What a read gives in place of a value that is larger than `longestValue`.
struct TooLarge
{
};
bool IsTooLarge(const QVariant &value);

// The rows of one table that SelectRows reads.
struct RowsQuery
{
    QString table;
    QStringList fields;                           // SQL expressions of a row's fields, "rowid" among them
    std::optional<int> orderField = std::nullopt; // by which of them the rows are ordered; else as they were added
    QString where = {};                           // a condition on small fields; empty: all rows
    bool newestFirst = false;                     // without an orderField only
    int limit = -1;                               // that many rows at most; below 0 all
};

// Tells whether a file was changed, by whichever connection, the own one included.
struct FileVersion
{
    qint64 data = -1;       // of the others' commits
    quint64 ownCommits = 0; // of this connection's
    bool operator==(const FileVersion &) const = default;
};

// A name as an SQL identifier: in double quotes, inner ones doubled. The only way in which a name that comes from people
// (a user's table, a form's table) enters a statement.
QString Quoted(const QString &identifier);

// One connection to one SQLite file. Every operation throws dao::Error. Values are bound, never pasted into the text; a bool
// is stored as -1 or 0, a QDateTime in days, an invalid QVariant as null. A connection belongs to the thread that opened it.
//
// Others may write what they like into a file, so each connection takes it for hostile: no trigger fires, no view is read, no
// function of the schema's own is trusted, and what is longer than the program ever writes is refused with
// ErrorKind::TooLarge. A statement, a transaction or the scope of a TimeLimit that lasts longer than `longestRequest` ends with
// ErrorKind::Stopped.
//
// While a file is open here, nothing else in this process may open it, a QFile as little as a second library: the system
// drops SQLite's locks as soon as any other handle to the file is closed.
class Database
{
public:
    static constexpr std::chrono::milliseconds defaultBusyWait{2000};
    static constexpr std::chrono::milliseconds longestRequest{10000};
    static constexpr int longestValue = 1 << 20; // bytes, of a value as of a row
    using StopFlag = std::shared_ptr<const std::atomic<bool>>;

    // Opens an existing file, with rollback journal DELETE and synchronous FULL: fit for a file that several machines share.
    // Never creates a file. One that is no database gives ErrorKind::Corrupt. One in another journal mode gives
    // ErrorKind::JournalMode and stays as it is, unless it has all of `ownTables`, which make it a file of this program: that
    // is put back as soon as nobody else has it open. Opening and every statement fail soon after another thread has set
    // `stop`: while they wait for a lock, with ErrorKind::Busy, else with Stopped. What waits for the file system can't be stopped.
    static Database OpenDatabase(const QString &path, std::chrono::milliseconds busyWait = defaultBusyWait,
                                 const StopFlag &stop = {}, const QStringList &ownTables = {});
    // Opens a file for this process alone, until it is closed or the process ends in whatever way: the per-login file. Tells
    // how that failed instead of throwing. The file must have one of `ownTables`.
    static Held OpenHeld(const QString &path, const QStringList &ownTables);
    // Opens a damaged file for reading what is left of it. It must be in use nowhere; neither it nor a journal is changed.
    static Database OpenDamaged(const QString &path);

    Database(); // closed
    ~Database();
    Database(Database &&other) noexcept;
    Database &operator=(Database &&other) noexcept;

    bool IsOpen() const;
    QString Path() const;
    quint64 Number() const; // of the connection, which no other of this process ever has; 0 when closed
    void Close();           // closed already: nothing
    void SetBusyWait(std::chrono::milliseconds wait);
    // Another program may switch the file's journal mode while it is open here, and the next read follows it without a word.
    // Puts the mode back as OpenDatabase does, or throws. Each Transaction does so; what only reads calls it between two reads.
    // Costs next to nothing, as the file is not asked. Not within a transaction.
    void KeepJournalMode();

    // Runs a statement without a result; the number of rows it changed. Placeholders are "?". `purpose` says for the log
    // what the statement is for.
    int Execute(const QString &sql, const QVariantList &values, const QString &purpose);
    // The same where a row may hold a value that is too large: it can be changed, and deleted. `values` are of the usual size.
    int ExecuteOnLarge(const QString &sql, const QVariantList &values, const QString &purpose);
    // Runs `query`, and once more, told so, under SQLite's own limit where a value was too large. It must hand on none of them.
    void OnLarge(const QString &purpose, const std::function<void(bool again)> &query);
    // Runs an INSERT; the new row's Id, 0 when the statement inserted none.
    qint64 Insert(const QString &sql, const QVariantList &values, const QString &purpose);
    // All rows of a query, read to the end before it returns (an unfinished read would stop every writer).
    QList<QVariantList> Select(const QString &sql, const QVariantList &values, const QString &purpose);
    // Rows of a table, one by one where a value is too large: it comes as TooLarge, all others as they are.
    QList<QVariantList> SelectRows(const RowsQuery &rows, const QString &purpose);
    // One of them; empty when it is gone.
    QVariantList SelectRow(const QString &table, const QStringList &fields, qint64 rowid, const QString &purpose);
    // The same as Select without keeping the rows: `row` sees each in turn through the positioned query.
    void ForEach(const QString &sql, const QVariantList &values, const QString &purpose,
                 const std::function<void(const QSqlQuery &)> &row);
    // The first column of a query as texts: for lists of many thousand rows, which Select reads several times slower.
    QStringList Texts(const QString &select, const QString &purpose);
    // A number that stands for all that a query gives, in this process: another one when a row came, went or was changed.
    quint64 Checksum(const QString &select, const QString &purpose);

    FileVersion Version(); // of what a read would see now
    quint64 OwnCommits() const;
    qint64 SchemaVersion(); // another one: tables came, went or were changed

    bool HasTable(const QString &table);          // without regard to case
    QStringList FieldNames(const QString &table); // empty when there is no such table
    QList<FieldDef> Fields(const QString &table); // their names and types
    void CreateTableDef(const TableDef &table);   // with its "Id INTEGER PRIMARY KEY" and its indexes
    void AddField(const QString &table,
                  const FieldDef &field); // one that may not be null is empty or 0 in the rows there are
    void CreateIndex(const QString &table, const IndexDef &index);
    bool InTransaction() const;

    Recordset OpenRecordset(const QString &table);

    // Makes Now, CInt, Day, Month and Year known to this connection's statements, with `now` as the time. Now is in days.
    void RegisterFunctions(std::function<QDateTime()> now);

private:
    friend class Transaction;
    friend class TimeLimit;
    struct Connection;
    struct Change
    {
        int rows = 0;
        qint64 lastId = 0; // that of the newest row of this connection
    };

    static Database Connect(const QString &path, std::chrono::milliseconds busyWait,
                            QLatin1String mode = QLatin1String("mode=rw"));
    void StopWhen(const StopFlag &stop);
    void Guard();
    void Rollback(const QString &purpose);
    void SetUp();
    void Step(const QString &select, const QString &purpose, const std::function<void(sqlite3_stmt *)> &row);
    bool HasOwnJournalMode() const; // as far as the last read of the file has shown
    void Run(QSqlQuery &query, const QString &sql, const QVariantList &values, const QString &purpose);
    Change RunChange(const QString &sql, const QVariantList &values, const QString &purpose);
    void Prepare(QSqlQuery &query, const QString &sql, const QString &purpose);
    void RunPrepared(QSqlQuery &query, const QVariantList &values, const QString &purpose);
    [[noreturn]] void Throw(const QSqlQuery &query, const QString &purpose) const;
    Connection &Connected(const QString &purpose) const; // throws when closed
    HeldFailure Hold(const QStringList &ownTables, QString &detail);
    QString QuickCheck(const QString &purpose);
    bool ReadableNow(const QString &purpose);

    std::unique_ptr<Connection> connection_;
};

struct Held
{
    Database database; // closed unless failure is None
    HeldFailure failure = HeldFailure::None;
    ErrorKind kind = ErrorKind::Other; // of what NotWritable comes from
    QString detail;                    // for the log
};

// What a connection does in its scope ends `longestRequest` after its beginning, or with a scope around it if that ends sooner.
class TimeLimit
{
public:
    explicit TimeLimit(Database &database, std::chrono::milliseconds limit = Database::longestRequest);
    ~TimeLimit();
    TimeLimit(const TimeLimit &) = delete;
    TimeLimit &operator=(const TimeLimit &) = delete;

private:
    const Database &database_;
    const quint64 connection_; // which may be closed meanwhile
    std::optional<std::chrono::steady_clock::time_point> outer_;
};

// BEGIN IMMEDIATE … COMMIT; rolled back when it goes out of scope without Commit(). Not to be nested. One that only reads sees
// one state of the file throughout, takes one lock for all of it, and needs no Commit().
class Transaction
{
public:
    enum class For { Writing, Reading };

    Transaction(Database &database, QString purpose, For what = For::Writing);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void Commit();

private:
    Database &database_;
    QString purpose_;
    std::optional<TimeLimit> limit_; // from the moment on at which others have to wait
    bool open_ = true;
};

} // namespace dao

Q_DECLARE_METATYPE(dao::TooLarge)
