#pragma once

#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

// One look at the company database: it delivers what waits to be sent, takes what has arrived, and reads all users. It
// runs on the thread of that file and knows nothing of the per-login database, in which Mail keeps the other half.
//
// Every message arrives exactly once, whoever dies when:
//  - The company's transaction adds a message's id to the table ":Receipts" and, only if it was new there, the message
//    to the recipient's table. The sender then takes the message out of the outbox and remembers to acknowledge the
//    receipt; a later company transaction deletes it. So a sender that died in between does not deliver twice, even
//    when the recipient has deleted the message meanwhile.
//  - The recipient takes the messages in, by their ids, and remembers to acknowledge them; a later company transaction
//    deletes them from the table.
//  - Two looks with the same outbox may follow each other: nobody hears the answer of the first when another file came into
//    use meanwhile, and this one again. The second finds the receipts, adds nothing, and tells of the same deliveries.
// Each file has an id of its own, in its table ":File": what is to be acknowledged in one file is never looked for in
// another. The names of these tables can't be those of users.
namespace Poll {

// Of one look, so that none takes long, however many wait.
constexpr int mostMessages = 200;
constexpr int mostDelivered = 2000;

constexpr qsizetype longestMessage = 90; // characters, with the date before the text

QString RandomId(); // for a message; no other ever gets the same

struct OutgoingMessage
{
    QString id;
    QString to;
    QString message;
    bool operator==(const OutgoingMessage &) const = default;
};

struct IncomingMessage
{
    QString id;
    QString from;
    QString message;
    bool operator==(const IncomingMessage &) const = default;
};

struct Acknowledgement
{
    enum class Of { Receipt, Message };

    QString fileId; // of the company database
    QString messageId;
    Of of = Of::Receipt;
    bool operator==(const Acknowledgement &) const = default;
};

// Values, as they go to another thread.
struct Request
{
    QString user; // the own identity
    QDateTime now;
    QList<OutgoingMessage> outbox; // nothing with an empty `to` or `message`
    QList<Acknowledgement> acknowledgements;
};

struct News
{
    bool changed = false; // else nothing happened since the last look, and all that follows is empty
    QList<Presence::UserRow> users;
    QString jobsMark; // another one: jobs were added, deleted or renamed
    QString fileId;   // empty when the file could not be written yet: then there are no incoming messages, either
    // The oldest `mostMessages` in the own table, each cut to what can be written; also those taken before.
    QList<IncomingMessage> incoming;
    QStringList delivered; // ids of the outbox, at most `mostDelivered`; what is not among them stays queued
    QList<Acknowledgement> acknowledged;    // need not be remembered any longer
    std::optional<dao::Error> refusedWrite; // the file could be read, not written
    bool moreWait = false;                  // to be taken or delivered by the next look
};

// What is remembered from one look at a file to the next. Belongs to the thread of the file.
struct Memory
{
    quint64 connection = 0;        // the memory of another connection is worth nothing
    dao::FileVersion version;      // that of which everything was read
    qint64 schema = -1;            // of which the own table was looked for
    QHash<QString, QString> users; // as the file spells them, by the name in upper case
    QSet<QString> withoutTable;    // users, in upper case, who have no table, or one that refuses messages
    QString fileId;
    QString ownTable;   // empty: there is none
    QDateTime lastSign; // when the own heartbeat was written; invalid until then
};

QString ReadFileId(dao::Database &database); // empty when it has none yet; throws dao::Error

// One statement when the file has not changed, nothing can be delivered or acknowledged, and the own heartbeat is
// less than a minute old; only reads when only the file has changed. Throws dao::Error when the file can't be read; what
// could not be written is in News::refusedWrite.
News Run(dao::Database &database, Memory &memory, const Request &request);

} // namespace Poll
