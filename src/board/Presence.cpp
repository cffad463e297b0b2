#include "board/Presence.h"

#include "platform/dao/Database.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

struct UserRow
{
    QString user; // as the table spells it
    QString fullName;
    QVariant state;
};

// The file's own comparison knows only the letters A to Z, so people are compared here.
bool SameName(const QString &a, const QString &b)
{
    return a.toUpper() == b.toUpper();
}

QList<UserRow> ReadUsers(dao::Database &database)
{
    QList<UserRow> rows;
    for (const QVariantList &row : database.Select(u"SELECT \"User\", FullName, State FROM Users ORDER BY \"User\""_s,
                                                   {}, u"reading the users"_s))
        rows.append({row[0].toString(), row[1].toString(), row[2]});
    return rows;
}

std::optional<UserRow> FindRow(const QList<UserRow> &rows, QString UserRow::*field, const QString &name)
{
    const auto found =
        std::find_if(rows.cbegin(), rows.cend(), [&](const UserRow &row) { return SameName(row.*field, name); });
    if (name.isEmpty() || found == rows.cend())
        return std::nullopt;
    return *found;
}

} // namespace

std::optional<QString> Presence::MatchLogin(dao::Database &database, const QString &login)
{
    const QList<UserRow> rows = ReadUsers(database);
    std::optional<UserRow> row = FindRow(rows, &UserRow::user, login);
    if (!row)
        row = FindRow(rows, &UserRow::fullName, login);
    return row ? std::optional(row->user.toUpper()) : std::nullopt;
}

void Presence::AddSelfToUsers(dao::Database &database, const QString &user, const QString &fullName)
{
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (!row) {
        // Another copy for the same person may have been faster meanwhile.
        database.Insert(u"INSERT INTO Users (\"User\", FullName) VALUES (?, ?) ON CONFLICT DO NOTHING"_s,
                        {user, fullName.isEmpty() ? QVariant() : fullName}, u"adding a user"_s);
    } else if (row->fullName.isEmpty() && !fullName.isEmpty()) {
        database.Execute(u"UPDATE Users SET FullName = ? WHERE \"User\" = ? AND coalesce(FullName, '') = ''"_s,
                         {fullName, row->user}, u"storing a user's full name"_s);
    }
}

void Presence::WriteState(dao::Database &database, const QString &user, State state)
{
    const int value = static_cast<int>(state);
    const std::optional<UserRow> row = FindRow(ReadUsers(database), &UserRow::user, user);
    if (!row || (!row->state.isNull() && row->state.toInt() == value))
        return;
    database.Execute(u"UPDATE Users SET State = ? WHERE \"User\" = ?"_s, {value, row->user},
                     u"writing a user's state"_s);
}
