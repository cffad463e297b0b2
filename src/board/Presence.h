#pragma once

#include <QString>

#include <optional>

namespace dao {
class Database;
}

// The rows of "Users" in the job database. All of these throw dao::Error. Names that differ in case only are one person,
// Danish letters included; a name is bound or compared in the program, never pasted into a statement.
namespace Presence {

enum class State { In = -1, Out = 0, Off = 1 };

// The identity that a login name stands for: the row whose User is `login`, else the first whose FullName is. Upper-cased.
std::optional<QString> MatchLogin(dao::Database &database, const QString &login);

// Adds a row for `user` unless there is one. A full name that is known is stored in a row that has none.
void AddSelfToUsers(dao::Database &database, const QString &user, const QString &fullName);

// Nothing when the row is missing, or holds that state already.
void WriteState(dao::Database &database, const QString &user, State state);

} // namespace Presence
