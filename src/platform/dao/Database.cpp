#include "platform/dao/Database.h"

#include "platform/dao/Connection.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/Error.h"
#include "platform/dao/Functions.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringBuilder>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace dao {

namespace {

void (*statementHook)() = nullptr;

Error MakeError(const QSqlError &error, const QString &purpose, const QString &file)
{
    const QString code = error.nativeErrorCode();
    const QString words = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return {KindOf(code.toInt()), purpose, file, words % u" ["_s % code % u']'};
}

// The driver creates a missing file unless a URI says otherwise. A share "//server/folder" needs the two slashes before it
// as any other path does, or its server would be taken for the URI's host, which SQLite refuses.
QString Uri(const QString &path, QLatin1String mode)
{
    const QString absolute = QDir::fromNativeSeparators(QFileInfo(path).absoluteFilePath());
    const QString root = absolute.startsWith(u'/') ? u"file://"_s : u"file:///"_s;
    return root % QString::fromLatin1(QUrl::toPercentEncoding(absolute, "/:")) % u'?' % mode;
}

QVariant Stored(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool && !value.isNull())
        return value.toBool() ? -1 : 0;
    if (value.typeId() == QMetaType::QDateTime)
        return DateField(value.toDateTime());
    return value;
}

} // namespace

ErrorKind KindOf(int nativeCode)
{
    switch (nativeCode & 0xff) { // the rest is detail: "busy while recovering", "constraint of a unique index"
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ErrorKind::Busy;
    case SQLITE_CONSTRAINT:
        return ErrorKind::Constraint;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return ErrorKind::Corrupt;
    case SQLITE_READONLY:
        return ErrorKind::ReadOnly;
    case SQLITE_CANTOPEN:
        return ErrorKind::CannotOpen;
    case SQLITE_FULL:
        return ErrorKind::Full;
    case SQLITE_TOOBIG:
        return ErrorKind::TooLarge;
    case SQLITE_INTERRUPT:
        return ErrorKind::Stopped;
    default:
        return ErrorKind::Other;
    }
}

void SetStatementHook(void (*hook)())
{
    statementHook = hook;
}

QString Quoted(const QString &identifier)
{
    QString doubled = identifier;
    doubled.replace(u'"', u"\"\""_s);
    return u'"' % doubled % u'"';
}

Database::Database() = default;
Database::~Database() = default;
Database::Database(Database &&other) noexcept = default;
Database &Database::operator=(Database &&other) noexcept = default;

Database Database::Connect(const QString &path, std::chrono::milliseconds busyWait, QLatin1String mode)
{
    // Its sums of memory in use take a lock at each allocation, for which threads that read long lists at the same time would
    // queue. Refused, and not needed, where something else has used the library before.
    [[maybe_unused]] static const int config = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static std::atomic<quint64> count = 0;
    Database database;
    database.connection_ = std::make_unique<Connection>();
    Connection &connection = *database.connection_;
    connection.path = path;
    connection.busyWait = busyWait;
    connection.number = ++count;
    connection.name = u"dao-%1"_s.arg(connection.number);
    connection.session = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection.name);
    connection.session.setDatabaseName(Uri(path, mode));
    connection.session.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyWait.count()));
    if (!connection.session.open())
        throw MakeError(connection.session.lastError(), u"opening a database"_s, path);

    const QVariant handle = connection.session.driver()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3*") == 0)
        connection.handle = *static_cast<sqlite3 *const *>(handle.constData());
    // The handle may go only to the very library that made it.
    QSqlQuery version(connection.session);
    if (!connection.handle || !version.exec(u"SELECT sqlite_source_id()"_s) || !version.next()
        || version.value(0).toString() != QLatin1String(sqlite3_sourceid()))
        throw Error(ErrorKind::Other, u"opening a database"_s, path,
                    u"program and Qt use different SQLite libraries"_s);
    database.Guard();
    return database;
}

void Database::SetUp()
{
    const QString purpose = u"setting up a database"_s;
    // Reading the schema also tells at once what is no database.
    Select(u"SELECT count(*) FROM sqlite_master"_s, {}, purpose);
    KeepJournalMode();
    Execute(u"PRAGMA synchronous = FULL"_s, {}, purpose);
    const int synchronous = Select(u"PRAGMA synchronous"_s, {}, purpose).value(0).value(0).toInt();
    constexpr int full = 2;
    if (synchronous != full)
        throw Error(ErrorKind::Other, purpose, Path(), u"synchronous is %1"_s.arg(synchronous));
}

bool Database::HasOwnJournalMode() const
{
    Connection &connection = Connected(u"asking for the journal mode"_s);
    if (!connection.journalMode)
        sqlite3_prepare_v2(connection.handle, "PRAGMA journal_mode", -1, &connection.journalMode, nullptr);
    // It reads the schema anew where that has changed, for which a lock may be in the way.
    const bool answered = sqlite3_step(connection.journalMode) == SQLITE_ROW;
    const auto *mode = answered ? reinterpret_cast<const char *>(sqlite3_column_text(connection.journalMode, 0)) : "";
    const bool isOwn = qstricmp(mode, "delete") == 0;
    const int code = sqlite3_reset(connection.journalMode);
    if (!answered)
        throw Error(KindOf(code), u"asking for the journal mode"_s, Path(),
                    QString::fromUtf8(sqlite3_errmsg(connection.handle)));
    return isOwn;
}

void Database::KeepJournalMode()
{
    if (HasOwnJournalMode())
        return;
    const QString purpose = u"putting the journal mode back"_s;
    // The mode is written to the file, so a file of another program keeps its own.
    if (Connected(purpose).isOwn) {
        try {
            Select(u"PRAGMA journal_mode = DELETE"_s, {}, purpose);
        } catch (const Error &error) { // it is refused at once, without a wait, while others have the file open
            if (error.Kind() != ErrorKind::Busy)
                throw;
        }
    }
    if (!HasOwnJournalMode())
        throw Error(ErrorKind::JournalMode, purpose, Path(), u"the file keeps a write-ahead log"_s);
}

Database Database::OpenDatabase(const QString &path, std::chrono::milliseconds busyWait, const StopFlag &stop,
                                const QStringList &ownTables)
{
    if (QFileInfo(path).isDir())
        throw Error(ErrorKind::Folder, u"opening a database"_s, path, u"it is a folder"_s);
    if (!QFileInfo(path).isFile())
        throw Error(ErrorKind::CannotOpen, u"opening a database"_s, path, u"no such file"_s);
    Database database = Connect(path, busyWait);
    if (stop)
        database.StopWhen(stop);
    database.connection_->isOwn =
        !ownTables.isEmpty() && std::all_of(ownTables.cbegin(), ownTables.cend(), [&database](const QString &table) {
            return database.HasTable(table);
        });
    database.SetUp();
    return database;
}

Database Database::OpenDamaged(const QString &path)
{
    Database database = Connect(path, {}, "mode=ro&immutable=1"_L1);
    // The library otherwise refuses all of a file that was cut off, or that has one faulty line in its schema. Its defensive mode
    // would pass over the pragma without a word; nothing can be written to this file anyway.
    sqlite3_db_config(database.connection_->handle, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    database.Execute(u"PRAGMA writable_schema = ON"_s, {}, u"opening a damaged file"_s);
    return database;
}

bool Database::IsOpen() const
{
    return connection_ != nullptr;
}

QString Database::Path() const
{
    return connection_ ? connection_->path : QString();
}

quint64 Database::Number() const
{
    return connection_ ? connection_->number : 0;
}

void Database::Close()
{
    connection_.reset();
}

void Database::SetBusyWait(std::chrono::milliseconds wait)
{
    Connection &connection = Connected(u"setting the busy wait"_s);
    connection.busyWait = wait;
    if (!connection.stop)
        sqlite3_busy_timeout(connection.handle, static_cast<int>(wait.count()));
}

Database::Connection &Database::Connected(const QString &purpose) const
{
    if (!connection_)
        throw Error(ErrorKind::Other, purpose, {}, u"the database is closed"_s);
    return *connection_;
}

bool Database::InTransaction() const
{
    return connection_ && !sqlite3_get_autocommit(connection_->handle);
}

void Database::Run(QSqlQuery &query, const QString &sql, const QVariantList &values, const QString &purpose)
{
    Prepare(query, sql, purpose);
    RunPrepared(query, values, purpose);
}

// A program changes rows by a few statements, again and again. To prepare one is half of what it costs, apart from the disk.
Database::Change Database::RunChange(const QString &sql, const QVariantList &values, const QString &purpose)
{
    constexpr std::size_t most = 32;
    Connection &connection = Connected(purpose);
    const TimeLimit limit(*this);
    if (connection.changes.size() == most)
        connection.changes.clear();
    const auto [change, isNew] = connection.changes.try_emplace(sql, connection.session);
    QSqlQuery &query = change->second;
    try {
        if (isNew)
            Prepare(query, sql, purpose);
        RunPrepared(query, values, purpose);
    } catch (const Error &) {
        connection.changes.erase(change);
        throw;
    }
    const Change made{query.numRowsAffected(), query.lastInsertId().toLongLong()};
    query.finish(); // a pragma gives a row: unread, it would hold a lock
    return made;
}

void Database::Prepare(QSqlQuery &query, const QString &sql, const QString &purpose)
{
    query.setForwardOnly(true); // nothing is kept for going back
    if (!query.prepare(sql))
        Throw(query, purpose);
}

void Database::RunPrepared(QSqlQuery &query, const QVariantList &values, const QString &purpose)
{
    if (statementHook)
        statementHook();
    if (Connected(purpose).IsOverdue()) // short statements are never asked while they run
        throw Error(ErrorKind::Stopped, purpose, Path(), u"it has taken too long"_s);
    for (const QVariant &value : values)
        query.addBindValue(Stored(value));
    if (!query.exec())
        Throw(query, purpose);
}

void Database::Throw(const QSqlQuery &query, const QString &purpose) const
{
    throw MakeError(query.lastError(), purpose, Path());
}

int Database::Execute(const QString &sql, const QVariantList &values, const QString &purpose)
{
    return RunChange(sql, values, purpose).rows;
}

qint64 Database::Insert(const QString &sql, const QVariantList &values, const QString &purpose)
{
    const Change made = RunChange(sql, values, purpose);
    return made.rows > 0 ? made.lastId : 0; // else it is that of an earlier row
}

void Database::ForEach(const QString &sql, const QVariantList &values, const QString &purpose,
                       const std::function<void(const QSqlQuery &)> &row)
{
    QSqlQuery query(Connected(purpose).session);
    const TimeLimit limit(*this);
    Run(query, sql, values, purpose);
    while (query.next())
        row(query);
    if (query.lastError().isValid())
        Throw(query, purpose);
}

QList<QVariantList> Database::Select(const QString &sql, const QVariantList &values, const QString &purpose)
{
    QList<QVariantList> rows;
    int columns = -1;
    ForEach(sql, values, purpose, [&](const QSqlQuery &query) {
        if (columns < 0)
            columns = query.record().count();
        QVariantList row;
        row.reserve(columns);
        for (int column = 0; column < columns; ++column)
            row.append(query.value(column));
        rows.append(row);
    });
    return rows;
}

// Past the driver, which keeps each row as a list of variants before it hands out its fields.
void Database::Step(const QString &select, const QString &purpose, const std::function<void(sqlite3_stmt *)> &row)
{
    const Connection &connection = Connected(purpose);
    const TimeLimit limit(*this);
    const QByteArray sql = select.toUtf8();
    sqlite3_stmt *prepared = nullptr;
    int code = sqlite3_prepare_v2(connection.handle, sql.constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> statement(prepared, sqlite3_finalize);
    if (code == SQLITE_OK)
        while ((code = sqlite3_step(prepared)) == SQLITE_ROW)
            row(prepared);
    if (code != SQLITE_DONE)
        throw Error(KindOf(code), purpose, Path(), QString::fromUtf8(sqlite3_errmsg(connection.handle)));
}

QStringList Database::Texts(const QString &select, const QString &purpose)
{
    QStringList texts;
    Step(select, purpose, [&texts](sqlite3_stmt *row) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(row, 0));
        texts.append(QString::fromUtf8(text, sqlite3_column_bytes(row, 0)));
    });
    return texts;
}

quint64 Database::Checksum(const QString &select, const QString &purpose)
{
    std::size_t sum = 1;
    Step(select, purpose, [&sum](sqlite3_stmt *row) {
        for (int column = 0; column < sqlite3_column_count(row); ++column) {
            const void *value = sqlite3_column_blob(row, column); // before its size is asked
            const int size = sqlite3_column_bytes(row, column);
            sum = qHashBits(value, static_cast<std::size_t>(size), qHash(size, sum));
        }
    });
    return sum;
}

Recordset Database::OpenRecordset(const QString &table)
{
    return {*this, table};
}

void Database::RegisterFunctions(std::function<QDateTime()> now)
{
    const QString purpose = u"registering the functions"_s;
    if (!dao::RegisterFunctions(Connected(purpose).handle, std::move(now)))
        throw Error(ErrorKind::Other, purpose, Path(), u"refused"_s);
}

} // namespace dao
