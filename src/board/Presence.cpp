#include "board/Presence.h"

#include "board/MessageTables.h"
#include "board/ShortText.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/Error.h"
#include "platform/system/Say.h"

#include <QStringBuilder>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace Presence {

namespace {

std::optional<UserRow> FindRow(const QList<UserRow> &rows, QString UserRow::*field, const QString &name)
{
    const auto found = std::find_if(rows.cbegin(), rows.cend(),
                                    [&](const UserRow &row) { return row.isNamed && SameName(row.*field, name); });
    if (name.isEmpty() || found == rows.cend())
        return std::nullopt;
    return *found;
}

// The fields that "Users" lacks, as they are declared.
QStringList MissingFields(dao::Database &database)
{
    const QStringList there = database.FieldNames(u"Users"_s);
    QStringList missing{u"FullName TEXT"_s, u"State INTEGER NOT NULL DEFAULT 0"_s,
                        u"Comment TEXT"_s,  u"LastSign REAL"_s,
                        u"Login TEXT"_s,    u"Job TEXT"_s,
                        u"JobSince REAL"_s};
    missing.removeIf(
        [&there](const QString &field) { return there.contains(field.section(u' ', 0, 0), Qt::CaseInsensitive); });
    return missing;
}

std::optional<Work> ReadWork(const QVariant &job, const QVariant &since)
{
    if (job.toString().isEmpty())
        return std::nullopt;
    return Work{job.toString(), dao::ReadDateField(since).value_or(QDateTime())};
}

bool HasJobFields(dao::Database &database)
{
    const QStringList fields = database.FieldNames(u"Users"_s);
    return fields.contains(u"Job"_s, Qt::CaseInsensitive) && fields.contains(u"JobSince"_s, Qt::CaseInsensitive);
}

} // namespace

bool SameName(const QString &a, const QString &b)
{
    return a.toUpper() == b.toUpper();
}

QList<UserRow> ReadUsers(dao::Database &database)
{
    const QStringList there = database.FieldNames(u"Users"_s);
    const auto ifThere = [&there](const QString &field, const QString &expression) {
        return there.contains(field, Qt::CaseInsensitive) ? expression : u"NULL"_s;
    };
    const auto cut = [&](const QString &field, qsizetype length) {
        return ifThere(field, u"substr(%1, 1, %2)"_s.arg(field).arg(length));
    };
    constexpr int user = 1;
    const QStringList fields{u"rowid"_s,
                             u"\"User\""_s,
                             cut(u"FullName"_s, longestName),
                             ifThere(u"State"_s, u"State"_s),
                             cut(u"Comment"_s, longestComment),
                             ifThere(u"LastSign"_s, u"LastSign"_s),
                             cut(u"Login"_s, longestName),
                             cut(u"Job"_s, longestJob),
                             ifThere(u"JobSince"_s, u"JobSince"_s)};
    QList<UserRow> users;
    for (const QVariantList &row : database.SelectRows({u"Users"_s, fields, user}, u"reading the users"_s)) {
        if (row[user].isNull())
            continue;
        UserRow &read = users.emplaceBack();
        read.row = row[0].toLongLong();
        read.isNamed = !dao::IsTooLarge(row[user]);
        read.user = read.isNamed ? row[user].toString() : Say("(too large, row %1)").arg(read.row);
        read.fullName = row[2].toString();
        read.state = row[3].toInt();
        read.comment = FirstCharactersOf(row[4], longestComment);
        read.lastSign = dao::ReadDateField(row[5]);
        read.login = row[6].toString();
        read.work = ReadWork(row[7], row[8]);
    }
    return users;
}

UsersAndJobs ReadUsersAndJobs(dao::Database &database)
{
    return {ReadUsers(database), ReadJobsMark(database)};
}

QString ReadJobsMark(dao::Database &database)
{
    const QString purpose = u"looking for changes of the job list"_s;
    try {
        return QString::number(database.Checksum(u"SELECT JobID, JobName FROM Projects"_s, purpose));
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
    }
    size_t sum = 1;
    for (const QVariantList &row :
         database.SelectRows({u"Projects"_s, {u"rowid"_s, u"JobID"_s, u"JobName"_s}}, purpose))
        for (const QVariant &value : row)
            sum = qHash(value.toString(), sum);
    return QString::number(sum);
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
        database.ExecuteOnLarge(u"UPDATE Users SET FullName = ?, Login = ? WHERE \"User\" = ?"_s,
                                {orNull(row->fullName.isEmpty() ? fullName : row->fullName),
                                 orNull(row->login.isEmpty() ? login : row->login), row->user},
                                purpose);
    MessageTables(database).Make(row ? row->user : user);
    transaction.Commit();
}

void WriteState(dao::Database &database, const QString &user, State state, const std::optional<Work> &work)
{
    const QString purpose = u"writing a user's state"_s;
    const int value = static_cast<int>(state);
    std::optional<Work> shown = work;
    if (shown)
        shown->job = FirstCharacters(shown->job, longestJob);
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (!row || (row->state == value && row->work == shown))
        return;
    if (HasJobFields(database))
        database.ExecuteOnLarge(u"UPDATE Users SET State = ?, Job = ?, JobSince = ? WHERE \"User\" = ?"_s,
                                {value, shown ? shown->job : QVariant(), shown ? shown->since : QVariant(), row->user},
                                purpose);
    else if (row->state != value)
        database.ExecuteOnLarge(u"UPDATE Users SET State = ? WHERE \"User\" = ?"_s, {value, row->user}, purpose);
}

void WriteComment(dao::Database &database, const QString &user, const QString &comment)
{
    const QString value = FirstCharacters(comment, longestComment);
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (row && row->comment != value)
        database.ExecuteOnLarge(u"UPDATE Users SET Comment = ? WHERE \"User\" = ?"_s, {value, row->user},
                                u"writing a user's status"_s);
}

void DeleteUser(dao::Database &database, const QString &user)
{
    dao::Transaction transaction(database, u"deleting a user"_s);
    int deleted = 0;
    for (const UserRow &row : ReadUsers(database))
        if (SameName(row.user, user))
            deleted += database.ExecuteOnLarge(u"DELETE FROM Users WHERE rowid = ?"_s, {row.row}, u"deleting a user"_s);
    if (deleted == 0)
        return;
    MessageTables(database).DropEmpty(user);
    transaction.Commit();
}

} // namespace Presence
