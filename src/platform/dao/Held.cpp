#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QFileInfo>
#include <QVariant>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

// One copy of the program holds its per-login file for as long as it lives. The lock is SQLite's own, so it goes with the
// process, however that ends, and leaves nothing behind that a next start could mistake for a running copy.

namespace dao {

namespace {

constexpr std::chrono::milliseconds startWait{700}; // for another copy that is just closing

HeldFailure FailureOf(const Error &error)
{
    switch (error.Kind()) {
    case ErrorKind::Corrupt:
        return HeldFailure::Damaged;
    case ErrorKind::Busy:
        return HeldFailure::InUseElsewhere;
    default: // also a full disk or a failing drive: nothing to be set aside
        return HeldFailure::NotWritable;
    }
}

} // namespace

Held Database::OpenHeld(const QString &path, const QStringList &ownTables)
{
    Held held;
    if (!QFileInfo(path).isFile()) {
        held.failure = HeldFailure::Missing;
        return held;
    }
    try {
        Database database = Connect(path, startWait);
        held.failure = database.Hold(ownTables, held.detail);
        if (held.failure == HeldFailure::None)
            held.database = std::move(database);
    } catch (const Error &error) {
        held.failure = FailureOf(error);
        held.kind = error.Kind();
        held.detail = error.Text();
    }
    return held;
}

HeldFailure Database::Hold(const QStringList &ownTables, QString &detail)
{
    const QString purpose = u"taking a file for this copy alone"_s;
    const auto begin = [&] { Execute(u"BEGIN EXCLUSIVE"_s, {}, purpose); };
    try {
        begin();
        // The file is judged before anything in it is touched.
        const bool isOwn =
            std::any_of(ownTables.cbegin(), ownTables.cend(), [this](const QString &table) { return HasTable(table); });
        const QString check = QuickCheck(purpose);
        if (!isOwn || check != "ok"_L1) {
            detail = isOwn ? check : u"none of the tables is there"_s;
            return HeldFailure::Damaged;
        }
        // A trial shows whether the file, and a journal beside it, can be written. Rolled back, it leaves the file as it was
        // and never waits for the disk.
        Execute(u"CREATE TABLE \"trial of writing\" (Id INTEGER PRIMARY KEY)"_s, {}, purpose);
        Execute(u"ROLLBACK"_s, {}, purpose);
        // The mode is set when the lock is there: set before, two copies that start at the same time would both keep a
        // shared lock and both fail. Here one of them wins, whoever begins last.
        begin();
        Execute(u"PRAGMA locking_mode = EXCLUSIVE"_s, {}, purpose);
        Execute(u"COMMIT"_s, {}, purpose);
        // It is the program's own, and its alone: the mode in which another program left it is put right.
        Select(u"PRAGMA journal_mode = DELETE"_s, {}, purpose);
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::Busy)
            throw;
        detail = error.Text();
        return ReadableNow(purpose) ? HeldFailure::InUseElsewhere : HeldFailure::HeldByAnotherCopy;
    }
    SetUp();
    return HeldFailure::None;
}

// A value that is too large is no damage.
QString Database::QuickCheck(const QString &purpose)
{
    try {
        return Select(u"PRAGMA quick_check(1)"_s, {}, purpose).value(0).value(0).toString();
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::TooLarge)
            throw;
        return u"ok"_s;
    }
}

bool Database::ReadableNow(const QString &purpose)
{
    SetBusyWait(std::chrono::milliseconds(0));
    try {
        Select(u"SELECT count(*) FROM sqlite_master"_s, {}, purpose);
        return true;
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::Busy)
            throw;
        return false;
    }
}

} // namespace dao
