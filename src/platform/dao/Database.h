#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <memory>

class QSqlQuery;

namespace dao {

class Recordset;
struct TableDef;

// A name as an SQL identifier: in double quotes, inner ones doubled. The only way in which a name that comes from people
// (a user's table, a form's table) enters a statement.
QString Quoted(const QString &identifier);

// One connection to one SQLite file. Every operation throws dao::Error. Values are bound, never pasted into the text.
// A connection belongs to the thread that opened it.
class Database
{
public:
    static constexpr std::chrono::milliseconds defaultBusyWait{2000};

    // Opens an existing file, with rollback journal DELETE and synchronous FULL, both verified: fit for a file that several
    // machines share. Never creates a file. A file that is no database gives ErrorKind::Corrupt.
    static Database OpenDatabase(const QString &path, std::chrono::milliseconds busyWait = defaultBusyWait);
    // Makes a new, empty database; the file must not exist.
    static Database CreateDatabase(const QString &path);

    Database(); // closed
    ~Database();
    Database(Database &&other) noexcept;
    Database &operator=(Database &&other) noexcept;

    bool IsOpen() const;
    QString Path() const;
    void Close(); // closed already: nothing
    void SetBusyWait(std::chrono::milliseconds wait);

    // Runs a statement without a result; the number of rows it changed. Placeholders are "?". `purpose` says for the log
    // what the statement is for.
    int Execute(const QString &sql, const QVariantList &values, const QString &purpose);
    // Runs an INSERT; the new row's Id.
    qint64 Insert(const QString &sql, const QVariantList &values, const QString &purpose);
    // All rows of a query, read to the end before it returns (an unfinished read would stop every writer).
    QList<QVariantList> Select(const QString &sql, const QVariantList &values, const QString &purpose);
    // The same without keeping the rows: `row` sees each in turn through the positioned query.
    void ForEach(const QString &sql, const QVariantList &values, const QString &purpose,
                 const std::function<void(const QSqlQuery &)> &row);

    bool HasTable(const QString &table);          // without regard to case
    QStringList FieldNames(const QString &table); // empty when there is no such table
    void CreateTableDef(const TableDef &table);   // with its "Id INTEGER PRIMARY KEY" and its indexes

    // A record set on a table, or on the result of a SELECT.
    Recordset OpenRecordset(const QString &tableOrSelect);

    // Makes Now, CInt, Day, Month and Year known to this connection's statements, with `now` as the time. Now is in days.
    void RegisterFunctions(std::function<QDateTime()> now);

private:
    friend class Transaction;
    struct Connection;
    explicit Database(std::unique_ptr<Connection> connection);
    std::unique_ptr<Connection> connection_;
};

// BEGIN IMMEDIATE … COMMIT; rolled back when it goes out of scope without Commit(). Not to be nested.
class Transaction
{
public:
    Transaction(Database &database, QString purpose);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void Commit();

private:
    Database &database_;
    QString purpose_;
    bool open_ = true;
};

} // namespace dao
