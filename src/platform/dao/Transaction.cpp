#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QLoggingCategory>

#include <utility>

namespace dao {

namespace {

Q_LOGGING_CATEGORY(log, "stemp.dao")

} // namespace

Transaction::Transaction(Database &database, QString purpose, For what)
    : database_(database), purpose_(std::move(purpose))
{
    const auto begin = [&] {
        database_.Execute(what == For::Writing ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN"), {},
                          purpose_);
    };
    const auto hasOwnJournalMode = [&] {
        try {
            return database_.HasOwnJournalMode();
        } catch (const Error &) { // of an object that was not made, no destructor rolls back
            database_.Rollback(purpose_);
            throw;
        }
    };
    begin();
    if (!hasOwnJournalMode()) {
        // Beginning has shown that another program switched it. It can't be put back from within.
        database_.Execute(QStringLiteral("ROLLBACK"), {}, purpose_);
        database_.KeepJournalMode();
        begin();
    }
    limit_.emplace(database_);
}

Transaction::~Transaction()
{
    if (!open_ || !database_.InTransaction()) // SQLite has rolled back by itself after some errors, a full disk for one
        return;
    try {
        database_.Rollback(purpose_);
    } catch (const Error &error) { // no destructor may throw; the connection's end rolls back too
        qCWarning(log).noquote() << error.Text();
    }
}

void Transaction::Commit()
{
    // A statement of its own: QSqlDatabase's commit() loses SQLite's code. When it fails, the destructor rolls back.
    database_.Execute(QStringLiteral("COMMIT"), {}, purpose_);
    open_ = false;
}

} // namespace dao
