#include "board/Mail.h"

#include "board/ShortText.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"

#include <QLocale>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int keptInHistory = 200; // rows, beside those that are unread

using Of = Poll::Acknowledgement::Of;

bool IsBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

// What it takes to go through a stop at any moment: whatever was taken in or delivered is also in the list of what to
// acknowledge, from the same transaction on, until the company database has got rid of it.
void RememberAcknowledgement(dao::Database &localDB, const QString &fileId, const QString &messageId, Of of)
{
    const int kind = static_cast<int>(of);
    localDB.Insert(u"INSERT INTO MessageAcknowledgements (FileId, MessageId, Kind) SELECT ?, ?, ? WHERE NOT EXISTS "
                   "(SELECT 1 FROM MessageAcknowledgements WHERE FileId = ? AND MessageId = ? AND Kind = ?)"_s,
                   {fileId, messageId, kind, fileId, messageId, kind}, u"remembering what to acknowledge"_s);
}

void ForgetAcknowledgement(dao::Database &localDB, const Poll::Acknowledgement &acknowledged)
{
    localDB.Execute(u"DELETE FROM MessageAcknowledgements WHERE FileId = ? AND MessageId = ? AND Kind = ?"_s,
                    {acknowledged.fileId, acknowledged.messageId, static_cast<int>(acknowledged.of)},
                    u"forgetting what was acknowledged"_s);
}

// A message may have left the history, and still be read again in the company database: then it waits to be acknowledged. Its
// file may be another one by now, so the id decides.
bool TakeIn(dao::Database &localDB, const Poll::IncomingMessage &message, const QDateTime &now)
{
    return localDB.Execute(u"INSERT INTO MessageHistory (MessageId, Received, Unread, Person, Message, Time) "
                           "SELECT ?, -1, -1, ?, ?, ? WHERE NOT EXISTS "
                           "(SELECT 1 FROM MessageAcknowledgements WHERE MessageId = ? AND Kind = ?) "
                           "ON CONFLICT (MessageId, Received) DO NOTHING"_s,
                           {message.id, message.from, message.message, now, message.id, static_cast<int>(Of::Message)},
                           u"taking a message in"_s)
           > 0;
}

// A row that was changed or deleted while its message was on the way no longer has this id.
void MoveToHistory(dao::Database &localDB, const QString &messageId, const QDateTime &now)
{
    const QString purpose = u"taking a message out of the outbox"_s;
    localDB.Insert(u"INSERT INTO MessageHistory (MessageId, Received, Unread, Person, Message, Time, Reached) "
                   "SELECT ifnull(BatchId, MessageId), 0, 0, iif(BatchId IS NULL, \"To\", 'All'), Message, ?, "
                   "iif(BatchId IS NULL, NULL, 1) FROM MessageBuffer WHERE MessageId = ? "
                   "ON CONFLICT (MessageId, Received) DO UPDATE SET Reached = Reached + 1"_s,
                   {now, messageId}, purpose);
    localDB.Execute(u"DELETE FROM MessageBuffer WHERE MessageId = ?"_s, {messageId}, purpose);
}

void Trim(dao::Database &localDB)
{
    localDB.Execute(u"DELETE FROM MessageHistory WHERE Unread = 0 AND Id <= "
                    "(SELECT Id FROM MessageHistory WHERE Unread = 0 ORDER BY Id DESC LIMIT 1 OFFSET ?)"_s,
                    {keptInHistory}, u"trimming the messages' history"_s);
}

QList<Poll::Acknowledgement> ReadAcknowledgements(dao::Database &localDB)
{
    QList<Poll::Acknowledgement> acknowledgements;
    for (const QVariantList &row :
         localDB.Select(u"SELECT FileId, MessageId, Kind FROM MessageAcknowledgements ORDER BY Id"_s, {},
                        u"reading what to acknowledge"_s))
        acknowledgements.append({row[0].toString(), row[1].toString(), static_cast<Of>(row[2].toInt())});
    return acknowledgements;
}

// A message whose id is not in the file could be delivered twice.
void GiveIds(dao::Database &localDB, const QList<qint64> &rows)
{
    const QString purpose = u"giving messages their ids"_s;
    dao::Transaction transaction(localDB, purpose);
    for (const qint64 row : rows)
        localDB.Execute(u"UPDATE MessageBuffer SET MessageId = ? WHERE Id = ?"_s, {Poll::RandomId(), row}, purpose);
    transaction.Commit();
}

} // namespace

QString ComposedMessage(const QString &text, const QDateTime &now)
{
    return FirstCharacters(QLocale().toString(now, u"ddd hh:mm") % u" - " % text, Poll::longestMessage);
}

void Mail::Queue(const QStringList &recipients, const QString &message)
{
    if (recipients.isEmpty())
        return;
    const QString purpose = u"queueing a message"_s;
    const QVariant batch = recipients.size() > 1 ? Poll::RandomId() : QVariant();
    dao::Transaction transaction(localDB_, purpose);
    for (const QString &recipient : recipients)
        localDB_.Insert(u"INSERT INTO MessageBuffer (\"To\", Message, MessageId, BatchId) VALUES (?, ?, ?, ?)"_s,
                        {recipient, message, Poll::RandomId(), batch}, purpose);
    transaction.Commit();
}

QList<BufferRow> Mail::Buffer()
{
    QList<BufferRow> rows;
    for (const QVariantList &row :
         localDB_.SelectRows({u"MessageBuffer"_s, {u"Id"_s, u"\"To\""_s, u"Message"_s}}, u"reading the outbox"_s))
        rows.append({row[0].toLongLong(), FirstCharactersOf(row[1], Presence::longestName),
                     FirstCharactersOf(row[2], Poll::longestMessage)});
    return rows;
}

qint64 Mail::AddBufferRow(const QString &to, const QString &message)
{
    return localDB_.Insert(u"INSERT INTO MessageBuffer (\"To\", Message, MessageId) VALUES (?, ?, ?)"_s,
                           {to, message, Poll::RandomId()}, u"adding to the outbox"_s);
}

// One that was only confirmed stays the same message: it may have been delivered just now.
void Mail::ChangeBufferRow(const BufferRow &row)
{
    localDB_.Execute(
        u"UPDATE MessageBuffer SET \"To\" = ?, Message = ?, MessageId = ?, BatchId = NULL WHERE Id = ? AND "
        "(ifnull(\"To\", '') <> ? OR ifnull(Message, '') <> ?)"_s,
        {row.to, row.message, Poll::RandomId(), row.id, row.to, row.message}, u"changing the outbox"_s);
}

void Mail::DeleteBufferRow(qint64 id)
{
    localDB_.Execute(u"DELETE FROM MessageBuffer WHERE Id = ?"_s, {id}, u"deleting from the outbox"_s);
}

Poll::Request Mail::MakeRequest(const QString &user, const QDateTime &now)
{
    Poll::Request request{user, now, {}, ReadAcknowledgements(localDB_)};
    QList<qint64> withoutId;
    for (const QVariantList &row :
         localDB_.SelectRows({u"MessageBuffer"_s, {u"Id"_s, u"\"To\""_s, u"Message"_s, u"MessageId"_s}},
                             u"reading what is to be sent"_s)) {
        const Poll::OutgoingMessage message{row[3].toString(), row[1].toString().trimmed(),
                                            FirstCharacters(row[2].toString(), Poll::longestMessage)};
        if (IsBlank(message.to) || IsBlank(message.message))
            continue;
        if (message.id.isEmpty())
            withoutId.append(row[0].toLongLong());
        request.outbox.append(message);
    }
    if (withoutId.isEmpty())
        return request;
    GiveIds(localDB_, withoutId);
    return MakeRequest(user, now);
}

bool Mail::Take(const Poll::News &news, const QDateTime &now)
{
    if (news.acknowledged.isEmpty() && news.incoming.isEmpty() && news.delivered.isEmpty())
        return false;
    dao::Transaction transaction(localDB_, u"taking in what a look at the company database gave"_s);
    for (const Poll::Acknowledgement &acknowledged : news.acknowledged)
        ForgetAcknowledgement(localDB_, acknowledged);
    QList<UnreadMessage> taken;
    for (const Poll::IncomingMessage &message : news.incoming) {
        if (!IsBlank(message.message) && TakeIn(localDB_, message, now))
            taken.append(message);
        RememberAcknowledgement(localDB_, news.fileId, message.id, Of::Message);
    }
    for (const QString &messageId : news.delivered) {
        MoveToHistory(localDB_, messageId, now);
        RememberAcknowledgement(localDB_, news.fileId, messageId, Of::Receipt);
    }
    Trim(localDB_);
    transaction.Commit();
    if (unread_)
        unread_->append(taken);
    return !taken.isEmpty() || !news.delivered.isEmpty();
}

const QList<UnreadMessage> &Mail::Unread()
{
    if (unread_)
        return *unread_;
    QList<UnreadMessage> messages;
    for (const QVariantList &row : localDB_.SelectRows({.table = u"MessageHistory"_s,
                                   .fields = {u"MessageId"_s, u"Person"_s, u"Message"_s},
                                   .where = u"Unread <> 0"_s},
                                                       u"reading the unread messages"_s))
        messages.append({row[0].toString(), row[1].toString(), FirstCharactersOf(row[2], Poll::longestMessage)});
    return unread_.emplace(std::move(messages));
}

void Mail::MarkRead(const QString &id)
{
    localDB_.Execute(u"UPDATE MessageHistory SET Unread = 0 WHERE MessageId = ? AND Unread <> 0"_s, {id},
                     u"marking a message as read"_s);
    if (unread_)
        unread_->removeIf([&id](const UnreadMessage &message) { return message.id == id; });
}

QList<HistoryRow> Mail::History()
{
    QList<HistoryRow> rows;
    for (const QVariantList &row : localDB_.SelectRows({.table = u"MessageHistory"_s,
                                   .fields = {u"Received"_s, u"Person"_s, u"Reached"_s, u"Message"_s, u"Time"_s},
                                   .newestFirst = true,
                                   .limit = keptInHistory},
                                                       u"reading the messages' history"_s))
        rows.append({row[0].toInt() != 0, row[1].toString(), row[2].toInt(),
                     FirstCharactersOf(row[3], Poll::longestMessage),
                     dao::ReadDateField(row[4]).value_or(QDateTime())});
    return rows;
}
