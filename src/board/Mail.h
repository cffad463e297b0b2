#pragma once

#include "board/Poll.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace dao {
class Database;
}

// "Sat 15:07 - text", cut to Poll::longestMessage.
QString ComposedMessage(const QString &text, const QDateTime &now);

// A row of "MessageBuffer". Only one with both texts is sent; the others are kept.
struct BufferRow
{
    qint64 id = 0; // of the row
    QString to;
    QString message;
    bool operator==(const BufferRow &) const = default;
};

using UnreadMessage = Poll::IncomingMessage; // until it is clicked away

// A message that was received or has left the outbox.
struct HistoryRow
{
    bool received = false; // else sent
    QString person;        // the sender or the recipient; "All" for one that went to several
    int reached = 0;       // of these, how many it has reached; 0 for one that went to one
    QString message;
    QDateTime time; // when it was taken in, or left
};

// The person's own side of the messages, in the per-login database: the outbox, what has arrived, and what is to be
// acknowledged in the company database (see Poll.h). All of these throw dao::Error, and then nothing was changed.
class Mail
{
public:
    explicit Mail(dao::Database &localDB) : localDB_(localDB) {} // outlives this

    // The outbox. Rows are added for all recipients or for none; those for several become one row of the history. A row that is
    // changed is another message from then on.
    void Queue(const QStringList &recipients, const QString &message);
    QList<BufferRow> Buffer();
    qint64 AddBufferRow(const QString &to, const QString &message); // its id
    void ChangeBufferRow(const BufferRow &row);
    void DeleteBufferRow(qint64 id);

    // What a poll needs, and what to make of its answer, in one transaction.
    Poll::Request MakeRequest(const QString &user, const QDateTime &now);
    bool Take(const Poll::News &news, const QDateTime &now); // whether a message was new, or one has left the outbox

    const QList<UnreadMessage> &
    Unread(); // the oldest first; they stay so until they are marked, whatever ends the program
    void MarkRead(const QString &id);
    QList<HistoryRow> History(); // the last 200, the newest first

private:
    dao::Database &localDB_;
    std::optional<QList<UnreadMessage>> unread_; // as the file has them; read again where a change of it failed
};
