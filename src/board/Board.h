#pragma once

#include "board/Mail.h"
#include "board/Presence.h"

#include <QDateTime>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

// What the board of one running copy shows. A message waits for its sender's row: at most one for each sender is shown, the
// next one after the first was cleared and a further poll ran. Rows are counted from 0.
class Board
{
public:
    struct Row
    {
        QString name;
        int state = 0; // as Presence::UserRow
        QString comment;
        std::optional<QDateTime> lastSign;    // by the own clock, once one has followed another
        std::optional<UnreadMessage> message; // shown in place of the comment
        bool isUser = true;                 // false: a sender who is no user any more; such rows stand after the users
        std::optional<Presence::Work> work; // only of one who is stemped in
        int waiting = 0;                    // unread messages of the same sender that come after the one that is shown
    };

    QStringList UserNames; // in upper case, in the order of the rows
    int UserCount() const { return static_cast<int>(UserNames.size()); }
    bool MessageShown(int row) const { return rows_.at(static_cast<std::size_t>(row)).message.has_value(); }
    bool Alert = false; // some row shows a message
    QString OwnName;    // as the company database spells it

    const std::vector<Row> &Rows() const { return rows_; }
    bool IsOwn(const QString &name) const; // in any case
    // The other users, in upper case, to whom a message to `recipient` goes, a name or "ALL" in upper case.
    QStringList RecipientsOf(const QString &recipient) const;

    // Takes the users that were read. Where there are others than before, Users_Init runs first.
    void TakeUsers(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now);
    // Makes the rows anew; which messages are shown is forgotten, and settled by the next ShowMessages.
    void Users_Init(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now);

    // The step of a poll that concerns messages: rows that show none show the oldest unread one of their sender. The row of
    // the newest one that has come since the step before, also if it waits there; nothing when none has come.
    std::optional<int> ShowMessages(const QList<UnreadMessage> &unread);
    // Clears the row's message; its id, for it is to be marked as read. The comment comes back with the next ShowMessages.
    QString ClearMessage(int row);

private:
    struct Sign
    {
        QDateTime written; // by that person's clock
        QDateTime heard;
    };

    void FillRows(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now);
    std::optional<QDateTime> LastSign(const Presence::UserRow &user, const QDateTime &now);
    QHash<QString, UnreadMessage> TakeShownMessages(const QList<UnreadMessage> &unread);

    std::vector<Row> rows_;
    std::map<std::size_t, QString> clearedComments_; // of the rows that show nothing until the next ShowMessages
    QSet<QString> known_;                            // ids of all that were ever unread
    QHash<QString, Sign> signs_;                     // by the name in upper case
};
