#include "platform/dao/Connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

// What keeps a file that somebody else has written from harming a copy that opens it.

namespace dao {

namespace {

// The largest that SQLite itself allows; only for what reads or deletes what is too large without handing it on.
constexpr int anySize = 1'000'000'000;

struct Limit
{
    int what;
    int most;
};

// What the statements of the program need, with room to spare. VACUUM attaches a file of its own.
constexpr Limit limits[] = {
    {SQLITE_LIMIT_LENGTH, Database::longestValue},
    {SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
    {SQLITE_LIMIT_COLUMN, 500},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_COMPOUND_SELECT, 20},
    {SQLITE_LIMIT_VDBE_OP, 100'000},
    {SQLITE_LIMIT_FUNCTION_ARG, 20},
    {SQLITE_LIMIT_ATTACHED, 1},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1000},
    {SQLITE_LIMIT_VARIABLE_NUMBER, 1000},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

struct Option
{
    int what;
    int value;
};

constexpr Option options[] = {
    {SQLITE_DBCONFIG_DQS_DML, 0}, // a misspelt "name" is an error, not a text to compare with
    {SQLITE_DBCONFIG_DEFENSIVE, 1},      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
};

} // namespace

void Database::Guard()
{
    Connection &connection = *connection_;
    for (const Option &option : options) {
        int now = -1;
        if (sqlite3_db_config(connection.handle, option.what, option.value, &now) != SQLITE_OK || now != option.value)
            throw Error(ErrorKind::Other, u"guarding a connection"_s, connection.path,
                        u"option %1 is refused"_s.arg(option.what));
    }
    for (const Limit &limit : limits)
        sqlite3_limit(connection.handle, limit.what, limit.most);

    constexpr int stepsBetweenLooks = 1000; // some microseconds
    sqlite3_progress_handler(
        connection.handle, stepsBetweenLooks,
        [](void *running) {
            const auto *at = static_cast<const Connection *>(running);
            return (at->stop && *at->stop) || at->IsOverdue() ? 1 : 0;
        },
        &connection);
    sqlite3_commit_hook(
        connection.handle,
        [](void *committing) {
            ++static_cast<Connection *>(committing)->commits;
            return 0;
        },
        &connection);
}

void Database::StopWhen(const StopFlag &stop)
{
    Connection &connection = Connected(u"setting what stops a statement"_s);
    connection.stop = stop;
    sqlite3_busy_handler(
        connection.handle,
        [](void *waiting, int waited) { return static_cast<Connection *>(waiting)->WaitsOn(waited) ? 1 : 0; },
        &connection); // instead of the library's wait
}

TimeLimit::TimeLimit(Database &database, std::chrono::milliseconds limit)
    : database_(database), connection_(database.Number())
{
    if (connection_ == 0)
        return;
    std::optional<std::chrono::steady_clock::time_point> &deadline = database.connection_->deadline;
    outer_ = deadline;
    const auto own = std::chrono::steady_clock::now() + limit;
    deadline = outer_ ? std::min(*outer_, own) : own;
}

TimeLimit::~TimeLimit()
{
    if (connection_ != 0 && database_.Number() == connection_)
        database_.connection_->deadline = outer_;
}

// However late it is.
void Database::Rollback(const QString &purpose)
{
    std::optional<std::chrono::steady_clock::time_point> &deadline = Connected(purpose).deadline;
    const auto passed = std::exchange(deadline, std::nullopt);
    sqlite3_exec(Connected(purpose).handle, "ROLLBACK", nullptr, nullptr, nullptr);
    deadline = passed;
}

FileVersion Database::Version()
{
    const QList<QVariantList> row = Select(u"PRAGMA data_version"_s, {}, u"looking whether the file has changed"_s);
    return {row.value(0).value(0).toLongLong(), OwnCommits()};
}

quint64 Database::OwnCommits() const
{
    return connection_ ? connection_->commits : 0;
}

qint64 Database::SchemaVersion()
{
    const QList<QVariantList> row = Select(u"PRAGMA schema_version"_s, {}, u"looking whether tables have changed"_s);
    return row.value(0).value(0).toLongLong();
}

bool IsTooLarge(const QVariant &value)
{
    return value.typeId() == qMetaTypeId<TooLarge>();
}

void Database::OnLarge(const QString &purpose, const std::function<void(bool)> &query)
{
    try {
        query(false);
        return;
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::TooLarge)
            throw;
    }
    struct Raised
    {
        explicit Raised(sqlite3 *raised) : handle(raised) { sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, anySize); }
        ~Raised() { sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, longestValue); }
        sqlite3 *handle;
    };
    const Raised raised(Connected(purpose).handle);
    query(true);
}

int Database::ExecuteOnLarge(const QString &sql, const QVariantList &values, const QString &purpose)
{
    int changed = 0;
    OnLarge(purpose, [&](bool) { changed = Execute(sql, values, purpose); });
    return changed;
}

QList<QVariantList> Database::SelectRows(const RowsQuery &rows, const QString &purpose)
{
    const QString table = u" FROM "_s % Quoted(rows.table);
    const QString where = rows.where.isEmpty() ? QString() : QString(u" WHERE "_s % rows.where);
    const QString byNumber = rows.newestFirst ? u" ORDER BY rowid DESC"_s : u" ORDER BY rowid"_s;
    const QString limit = u" LIMIT "_s % QString::number(rows.limit);
    try {
        const QString order = rows.orderField ? QString(u" ORDER BY "_s % rows.fields.at(*rows.orderField)) : byNumber;
        return Select(u"SELECT "_s % rows.fields.join(u", "_s) % table % where % order % limit, {}, purpose);
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::TooLarge)
            throw;
    }
    // The numbers of the rows are read without their values, and not from an index, which holds some of them.
    QList<QVariantList> read;
    const QString someNumbers = rows.orderField ? QString() : limit;
    for (const QVariantList &number :
         Select(u"SELECT rowid"_s % table % u" NOT INDEXED"_s % where % byNumber % someNumbers, {}, purpose))
        if (const QVariantList row = SelectRow(rows.table, rows.fields, number.value(0).toLongLong(), purpose);
            !row.isEmpty())
            read.append(row);
    if (rows.orderField) {
        std::stable_sort(read.begin(), read.end(), [&](const QVariantList &a, const QVariantList &b) {
            const auto key = [&](const QVariantList &row) { return row.value(*rows.orderField).toString(); };
            return key(a).compare(key(b), Qt::CaseInsensitive) < 0;
        });
        if (rows.limit >= 0 && read.size() > rows.limit)
            read.resize(rows.limit);
    }
    return read;
}

QVariantList Database::SelectRow(const QString &table, const QStringList &fields, qint64 rowid, const QString &purpose)
{
    const QString rest = u" FROM "_s % Quoted(table) % u" WHERE rowid = ?"_s;
    try {
        return Select(u"SELECT "_s % fields.join(u", "_s) % rest, {rowid}, purpose).value(0);
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::TooLarge)
            throw;
    }
    QVariantList row;
    for (const QString &field : fields) {
        try {
            row.append(Select(u"SELECT "_s % field % rest, {rowid}, purpose).value(0).value(0));
        } catch (const Error &error) {
            if (error.Kind() != ErrorKind::TooLarge)
                throw;
            row.append(QVariant::fromValue(TooLarge()));
        }
    }
    return row;
}

} // namespace dao
