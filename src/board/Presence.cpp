#include "board/Presence.h"

#include "board/MessageTables.h"
#include "board/ShortText.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringBuilder>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace Presence {

namespace {

// One row; beside max() stand the fields of the newest job.
const QString jobsMark =
    u"(SELECT coalesce(count(*) || ' ' || max(rowid) || ' ' || JobID || ' ' || coalesce(JobName, ''), '') "
    "AS JobsMark FROM Projects)"_s;

std::optional<UserRow> FindRow(const QList<UserRow> &rows, QString UserRow::*field, const QString &name)
{
    const auto found =
        std::find_if(rows.cbegin(), rows.cend(), [&](const UserRow &row) { return SameName(row.*field, name); });
    if (name.isEmpty() || found == rows.cend())
        return std::nullopt;
    return *found;
}

// The fields that "Users" lacks, as they are declared.
QStringList MissingFields(dao::Database &database)
{
    const QStringList there = database.FieldNames(u"Users"_s);
    QStringList missing{u"FullName TEXT"_s, u"State INTEGER NOT NULL DEFAULT 0"_s, u"Comment TEXT"_s,
                        u"LastSign REAL"_s, u"Login TEXT"_s};
    missing.removeIf(
        [&there](const QString &field) { return there.contains(field.section(u' ', 0, 0), Qt::CaseInsensitive); });
    return missing;
}

// Reads from `source`, which has the fields of "Users" and may have one named "JobsMark".
UsersAndJobs ReadFrom(dao::Database &database, const QString &source)
{
    struct Columns
    {
        int user, fullName, state, comment, lastSign, login, jobsMark;
    };
    UsersAndJobs read;
    std::optional<Columns> columns;
    database.ForEach(
        u"SELECT * FROM "_s % source % u" ORDER BY \"User\""_s, {}, u"reading the users"_s,
        [&](const QSqlQuery &query) {
            const auto field = [&query](int column) { return column < 0 ? QVariant() : query.value(column); };
            if (!columns) {
                const QSqlRecord record = query.record();
                columns = {record.indexOf(u"User"_s),    record.indexOf(u"FullName"_s), record.indexOf(u"State"_s),
                           record.indexOf(u"Comment"_s), record.indexOf(u"LastSign"_s), record.indexOf(u"Login"_s),
                           record.indexOf(u"JobsMark"_s)};
                read.jobsMark = field(columns->jobsMark).toString();
            }
            const QVariant user = field(columns->user);
            if (!user.isNull())
                read.users.append({user.toString(), field(columns->fullName).toString(), field(columns->state).toInt(),
                                   field(columns->comment).toString(), dao::ReadDateField(field(columns->lastSign)),
                                   field(columns->login).toString()});
        });
    return read;
}

} // namespace

bool SameName(const QString &a, const QString &b)
{
    return a.toUpper() == b.toUpper();
}

QList<UserRow> ReadUsers(dao::Database &database)
{
    return ReadFrom(database, u"Users"_s).users;
}

UsersAndJobs ReadUsersAndJobs(dao::Database &database)
{
    return ReadFrom(database, jobsMark % u" LEFT JOIN Users"_s); // a mark comes without users, too
}

QString ReadJobsMark(dao::Database &database)
{
    return database.Select(u"SELECT JobsMark FROM "_s % jobsMark, {}, u"looking for changes of the job list"_s)
        .value(0)
        .value(0)
        .toString();
}

std::pair<qint64, qint64> CountUsersAndJobs(dao::Database &database)
{
    const QList<QVariantList> rows = database.Select(
        u"SELECT (SELECT count(*) FROM Users), (SELECT count(*) FROM Projects)"_s, {}, u"looking at a job database"_s);
    return {rows.value(0).value(0).toLongLong(), rows.value(0).value(1).toLongLong()};
}

std::optional<QString> MatchLogin(dao::Database &database, const QString &login)
{
    const QList<UserRow> rows = ReadUsers(database);
    std::optional<UserRow> row = FindRow(rows, &UserRow::user, login);
    if (!row)
        row = FindRow(rows, &UserRow::fullName, login);
    if (!row)
        row = FindRow(rows, &UserRow::login, login);
    return row ? std::optional(row->user.toUpper()) : std::nullopt;
}

void AddMissingFields(dao::Database &database)
{
    for (const QString &field : MissingFields(database))
        database.Execute(u"ALTER TABLE Users ADD COLUMN "_s % field, {}, u"adding a field of the users"_s);
}

void AddSelfToUsers(dao::Database &database, const QString &user, const QString &fullName, const QString &login)
{
    const QString purpose = u"adding a user"_s;
    const auto find = [&] { return FindRow(ReadUsers(database), &UserRow::user, user); };
    const auto isKnown = [&](const UserRow &row) {
        return (!row.fullName.isEmpty() || fullName.isEmpty()) && (!row.login.isEmpty() || login.isEmpty());
    };
    std::optional<UserRow> row = find();
    if (row && isKnown(*row) && MissingFields(database).isEmpty() && MessageTables(database).Find(user))
        return;
    const auto orNull = [](const QString &text) { return text.isEmpty() ? QVariant() : QVariant(text); };
    dao::Transaction transaction(database, purpose);
    AddMissingFields(database);
    row = find(); // another copy for the same person may have been faster
    if (!row)
        database.Insert(u"INSERT INTO Users (\"User\", FullName, Login) VALUES (?, ?, ?)"_s,
                        {user, orNull(fullName), orNull(login)}, purpose);
    else if (!isKnown(*row))
        database.Execute(u"UPDATE Users SET FullName = ?, Login = ? WHERE \"User\" = ?"_s,
                         {orNull(row->fullName.isEmpty() ? fullName : row->fullName),
                          orNull(row->login.isEmpty() ? login : row->login), row->user},
                         purpose);
    MessageTables(database).Make(row ? row->user : user);
    transaction.Commit();
}

void WriteState(dao::Database &database, const QString &user, State state)
{
    const int value = static_cast<int>(state);
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (row && row->state != value)
        database.Execute(u"UPDATE Users SET State = ? WHERE \"User\" = ?"_s, {value, row->user},
                         u"writing a user's state"_s);
}

void WriteComment(dao::Database &database, const QString &user, const QString &comment)
{
    const QString value = FirstCharacters(comment, longestComment);
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (row && row->comment != value)
        database.Execute(u"UPDATE Users SET Comment = ? WHERE \"User\" = ?"_s, {value, row->user},
                         u"writing a user's status"_s);
}

void DeleteUser(dao::Database &database, const QString &user)
{
    dao::Transaction transaction(database, u"deleting a user"_s);
    int deleted = 0;
    for (const UserRow &row : ReadUsers(database))
        if (SameName(row.user, user))
            deleted += database.Execute(u"DELETE FROM Users WHERE \"User\" = ?"_s, {row.user}, u"deleting a user"_s);
    if (deleted == 0)
        return;
    MessageTables(database).DropEmpty(user);
    transaction.Commit();
}

} // namespace Presence
