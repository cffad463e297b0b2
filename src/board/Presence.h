#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <chrono>
#include <optional>
#include <utility>

namespace dao {
class Database;
}

// The rows of "Users" in the job database. All of these throw dao::Error. Names that differ in case only are one
// person, Danish letters included; a name is bound or compared in the program, never pasted into a statement.
namespace Presence {

enum class State { In = -1, Out = 0, Off = 1 };

constexpr qsizetype longestComment = 80; // characters
constexpr qsizetype longestName = 255;   // of whom messages can be sent to; no identity is as long

constexpr qsizetype longestJob = 255;

constexpr std::chrono::seconds signPeriod{60}; // between two heartbeats of a copy that polls

// What a person who is stemped in works on, as far as colleagues may see it.
struct Work
{
    QString job;     // "id : name"; never empty
    QDateTime since; // by the clock of that person's machine; may be invalid in a file of another program
    bool operator==(const Work &) const = default;
};

struct UserRow
{
    QString user; // as the table spells it
    QString fullName;
    int state = 0; // below 0: stemped in, above 0: off; a null counts as out
    QString comment;
    // Of life, by the clock of that person's machine; nothing when that copy writes none.
    std::optional<QDateTime> lastSign;
    QString login = {};  // empty where it is not known
    qint64 row = 0;      // as long as the transaction lasts
    bool isNamed = true; // false: the name is too large to be read, and `user` says so
    std::optional<Work> work = {};
};

// The file's own comparison knows only the letters A to Z, so people are compared here.
bool SameName(const QString &a, const QString &b);

// All users, in the order of the index "User". The table may lack all fields but "User". Comments are cut to `longestComment`.
QList<UserRow> ReadUsers(dao::Database &database);

struct UsersAndJobs
{
    QList<UserRow> users;
    QString jobsMark; // another one: jobs were added, deleted or renamed
};
// The same with a mark of the job list.
UsersAndJobs ReadUsersAndJobs(dao::Database &database);
QString ReadJobsMark(dao::Database &database);
std::pair<qint64, qint64> CountUsersAndJobs(dao::Database &database);

// The identity that a login name stands for: the row whose User is `login`, else the first whose FullName is, else the first
// whose Login is. Upper-cased.
std::optional<QString> MatchLogin(dao::Database &database, const QString &login);

// Gives "Users" the fields that it lacks: files of earlier versions lack some, those of other programs maybe all but "User".
// Within a transaction, as another copy may be at it, too.
void AddMissingFields(dao::Database &database);

// Adds a row for `user`, and a message table with it, unless there is one, and the fields that "Users" lacks. A full name that
// is known is stored in a row that has none, and so is a login name.
void AddSelfToUsers(dao::Database &database, const QString &user, const QString &fullName, const QString &login = {});

// Nothing when the row is missing, or holds that already. Of a comment the first `longestComment` characters are
// written, of a job the first `longestJob`. State and work are written by one statement; without `work` the fields of the job
// are cleared. A file that lacks these fields takes the state alone.
void WriteState(dao::Database &database, const QString &user, State state, const std::optional<Work> &work = {});
void WriteComment(dao::Database &database, const QString &user, const QString &comment);

// Deletes the user's row, and the message table too if no message waits in it. Nothing when the row is missing.
void DeleteUser(dao::Database &database, const QString &user);

} // namespace Presence
