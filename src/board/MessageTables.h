#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace dao {
class Database;
}

// The tables of the company database that hold one user's messages each, with the fields "From", "Message" and
// "MessageId". A copy that knows only the first two may add rows, and may have made the table. A table bears its user's
// name; names that differ in case only are one, Danish letters included. Reads the names of the file's tables once, so
// it is not to outlive the transaction that it is used in. All of this throws dao::Error.
class MessageTables
{
public:
    explicit MessageTables(dao::Database &database);

    // The table's name as the file spells it; nothing when there is none.
    std::optional<QString> Find(const QString &user) const;
    // The same, made if it is missing, and given the field "MessageId" if it lacks it. Nothing when this user can't
    // have one: the name belongs to something else in the file, or to SQLite, or is too long.
    std::optional<QString> Make(const QString &user);
    // Drops the table if it is empty.
    void DropEmpty(const QString &user);

private:
    void MakeIndex(const QString &table);

    dao::Database &database_;
    QHash<QString, QString> names_; // of tables, by the name in upper case; an empty one where something else bears it
};
