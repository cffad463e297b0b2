#include "board/Poll.h"

#include "board/MessageTables.h"
#include "board/ShortText.h"
#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"

#include <QLoggingCategory>
#include <QStringBuilder>
#include <QUuid>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace Poll {

namespace {

Q_LOGGING_CATEGORY(log, "stemp.board")

const QString receipts = u":Receipts"_s;
const QString fileTable = u":File"_s;

QHash<QString, QString> ByUpperName(const QList<Presence::UserRow> &users)
{
    QHash<QString, QString> names;
    names.reserve(users.size());
    for (const Presence::UserRow &row : users)
        if (const QString name = row.user.toUpper();
            row.isNamed && !names.contains(name)) // of two rows for one person the first counts
            names.insert(name, row.user);
    return names;
}

struct OwnMessages
{
    QList<IncomingMessage> messages; // those that have an id
    QList<qint64> rowsWithoutId;
    bool isPart = false; // more may stand behind them
};

// The oldest ones. The table may lack the field of the ids, and an Id of its rows.
OwnMessages ReadMessages(dao::Database &database, const QString &table)
{
    const bool hasIds = database.FieldNames(table).contains(u"MessageId"_s, Qt::CaseInsensitive);
    const auto cut = [](const QString &field, qsizetype length) {
        return u"substr(%1, 1, %2)"_s.arg(field).arg(length);
    };
    const QStringList fields{u"rowid"_s, hasIds ? u"MessageId"_s : u"NULL"_s, cut(u"\"From\""_s, Presence::longestName),
                             cut(u"Message"_s, longestMessage)};
    OwnMessages own;
    const QList<QVariantList> rows =
        database.SelectRows({.table = table, .fields = fields, .limit = mostMessages}, u"reading the own messages"_s);
    for (const QVariantList &row : rows) {
        const QString id = row[1].toString();
        if (id.isEmpty())
            own.rowsWithoutId.append(row[0].toLongLong());
        else
            own.messages.append(
                {id, FirstCharactersOf(row[2], Presence::longestName), FirstCharactersOf(row[3], longestMessage)});
    }
    own.isPart = rows.size() == mostMessages;
    return own;
}

// Within the transaction. Files of earlier versions, and those of other programs, lack this; a new file has no id.
void MakeWhatIsMissing(dao::Database &database)
{
    if (!database.HasTable(receipts))
        database.CreateTableDef(
            {receipts, {{u"MessageId"_s, u"TEXT"_s, false, true}}, {{u"MessageId"_s, {u"MessageId"_s}, true}}});
    if (!database.HasTable(fileTable))
        database.CreateTableDef({fileTable, {{u"FileId"_s, u"TEXT"_s, false, true}}, {}});
    if (ReadFileId(database).isEmpty())
        database.Insert(u"INSERT INTO "_s % dao::Quoted(fileTable) % u" (FileId) VALUES (?)"_s, {RandomId()},
                        u"giving the file an id"_s);
    Presence::AddMissingFields(database);
}

// One look. What it finds is remembered only when all of it was read and, where it writes, committed.
class Look
{
public:
    Look(dao::Database &database, Memory &memory, const Request &request)
        : database_(database), memory_(memory), request_(request), user_(request.user.toUpper())
    {
    }

    News Run();

private:
    bool IsWriteDue(const Memory &known) const;
    bool Read(News &news, Memory &next);
    News Write();
    void Acknowledge(News &news, const QString &ownTable);
    bool Deliver(const OutgoingMessage &message, MessageTables &tables, Memory &next);
    OwnMessages TakeMessages(const QString &ownTable);
    void Sign(QList<Presence::UserRow> &users, const QString &ownName);

    dao::Database &database_;
    Memory &memory_;
    const Request &request_;
    const QString user_; // in upper case
};

News Look::Run()
{
    if (memory_.connection != database_.Number()) {
        memory_ = Memory();
        memory_.connection = database_.Number();
    }
    Memory next = memory_;
    next.version = database_.Version(); // before what it stands for: what changes from now on is read the next time
    bool writes = IsWriteDue(next);
    if (!writes && next.version == memory_.version)
        return {};
    std::optional<News> news;
    if (!writes) {
        writes = Read(news.emplace(), next) || IsWriteDue(next); // a recipient may have come
        if (!writes) {
            memory_ = next;
            return *news;
        }
    }
    try {
        return Write();
    } catch (const dao::Error &error) {
        // A file that can't be read, either, says so when it is read.
        if (error.Kind() == dao::ErrorKind::Corrupt)
            throw;
        if (!news)
            Read(news.emplace(), next);
        news->refusedWrite = error;
        return *news; // nothing is remembered, so all of it is tried again the next time
    }
}

bool Look::IsWriteDue(const Memory &known) const
{
    const QDateTime &sign = known.lastSign;
    if (!sign.isValid() || sign > request_.now || sign.secsTo(request_.now) >= Presence::signPeriod.count())
        return true;
    const auto isForHere = [&](const OutgoingMessage &message) {
        const QString to = message.to.toUpper();
        return known.users.contains(to) && !known.withoutTable.contains(to);
    };
    const auto isOfHere = [&](const Acknowledgement &acknowledgement) {
        return acknowledgement.fileId == known.fileId;
    };
    return std::any_of(request_.outbox.cbegin(), request_.outbox.cend(), isForHere)
           || std::any_of(request_.acknowledgements.cbegin(), request_.acknowledgements.cend(), isOfHere);
}

// Without writing. True when something is to be made or completed: the own table, or ids of messages.
bool Look::Read(News &news, Memory &next)
{
    const dao::Transaction transaction(database_, u"looking at the users"_s, dao::Transaction::For::Reading);
    Presence::UsersAndJobs read = Presence::ReadUsersAndJobs(database_);
    next.users = ByUpperName(read.users);
    news.changed = true;
    news.users = std::move(read.users);
    news.jobsMark = std::move(read.jobsMark);

    next.schema = database_.SchemaVersion();
    if (next.schema != memory_.schema) {
        next.ownTable = MessageTables(database_).Find(request_.user).value_or(QString());
        next.withoutTable.clear();
    }
    OwnMessages own;
    if (!next.ownTable.isEmpty())
        own = ReadMessages(database_, next.ownTable);
    if (next.fileId.isEmpty())
        next.fileId = ReadFileId(database_);
    news.fileId = next.fileId;
    if (!news.fileId.isEmpty())
        news.incoming = own.messages;
    const bool lacksTable = next.ownTable.isEmpty() && next.users.contains(user_) && !next.withoutTable.contains(user_);
    return lacksTable || !own.rowsWithoutId.isEmpty();
}

News Look::Write()
{
    dao::Transaction transaction(database_, u"exchanging messages"_s);
    MakeWhatIsMissing(database_);
    Memory next = memory_;
    next.fileId = ReadFileId(database_);
    News news;
    news.changed = true;
    news.fileId = next.fileId;
    Presence::UsersAndJobs read = Presence::ReadUsersAndJobs(database_);
    news.jobsMark = std::move(read.jobsMark);
    next.users = ByUpperName(read.users);
    next.withoutTable.clear();

    MessageTables tables(database_);
    const bool isUser = next.users.contains(user_);
    const QString ownName = next.users.value(user_, request_.user);
    next.ownTable.clear();
    if (isUser || tables.Find(ownName)) // messages may still wait for one who was deleted
        next.ownTable = tables.Make(ownName).value_or(QString());
    if (isUser && next.ownTable.isEmpty())
        next.withoutTable.insert(user_);

    Acknowledge(news, next.ownTable);
    for (const OutgoingMessage &message : request_.outbox) {
        news.moreWait = news.delivered.size() == mostDelivered;
        if (news.moreWait)
            break;
        if (Deliver(message, tables, next))
            news.delivered.append(message.id);
    }
    if (!next.ownTable.isEmpty()) {
        const OwnMessages own = TakeMessages(next.ownTable);
        news.incoming = own.messages;
        news.moreWait = news.moreWait || own.isPart;
    }
    if (isUser)
        Sign(read.users, ownName);
    news.users = std::move(read.users);

    next.lastSign = request_.now;
    next.version = database_.Version(); // nobody else can have changed anything meanwhile
    next.schema = database_.SchemaVersion();
    transaction.Commit();
    next.version.ownCommits = database_.OwnCommits();
    memory_ = next;
    return news;
}

void Look::Acknowledge(News &news, const QString &ownTable)
{
    for (const Acknowledgement &acknowledgement : request_.acknowledgements) {
        if (acknowledgement.fileId != news.fileId)
            continue;
        const QString table = acknowledgement.of == Acknowledgement::Of::Receipt ? receipts : ownTable;
        if (!table.isEmpty())
            database_.ExecuteOnLarge(u"DELETE FROM "_s % dao::Quoted(table) % u" WHERE MessageId = ?"_s,
                                     {acknowledgement.messageId}, u"deleting what has arrived"_s);
        news.acknowledged.append(acknowledgement);
    }
}

// True when the message has been put into the recipient's table, now or by an earlier look whose answer was lost.
bool Look::Deliver(const OutgoingMessage &message, MessageTables &tables, Memory &next)
{
    const QString purpose = u"delivering a message"_s;
    const QString to = message.to.toUpper();
    std::optional<QString> table;
    if (next.users.contains(to)) {
        table = tables.Make(next.users.value(to));
        if (!table)
            next.withoutTable.insert(to);
    }
    if (!table)
        return !database_
                    .Select(u"SELECT 1 FROM "_s % dao::Quoted(receipts) % u" WHERE MessageId = ?"_s, {message.id},
                            purpose)
                    .isEmpty();
    const int added = database_.Execute(u"INSERT INTO "_s % dao::Quoted(receipts)
                                            % u" (MessageId) VALUES (?) ON CONFLICT DO NOTHING"_s,
                                        {message.id}, purpose);
    if (added == 0)
        return true;
    try {
        database_.Execute(u"INSERT INTO "_s % dao::Quoted(*table)
                              % u" (\"From\", Message, MessageId) VALUES (?, ?, ?)"_s,
                          {next.users.value(user_, request_.user), message.message, message.id}, purpose);
    } catch (const dao::Error &error) {
        // A table that another program made may refuse a row. That must not keep back all the rest.
        if (error.Kind() != dao::ErrorKind::Constraint)
            throw;
        qCWarning(log).noquote() << error.Text();
        database_.Execute(u"DELETE FROM "_s % dao::Quoted(receipts) % u" WHERE MessageId = ?"_s, {message.id}, purpose);
        next.withoutTable.insert(to);
        return false;
    }
    return true;
}

OwnMessages Look::TakeMessages(const QString &ownTable)
{
    OwnMessages own = ReadMessages(database_, ownTable);
    for (const qint64 row : std::as_const(own.rowsWithoutId))
        database_.ExecuteOnLarge(u"UPDATE "_s % dao::Quoted(ownTable) % u" SET MessageId = ? WHERE rowid = ?"_s,
                                 {RandomId(), row}, u"giving a message an id"_s);
    return own.rowsWithoutId.isEmpty() ? own : ReadMessages(database_, ownTable);
}

void Look::Sign(QList<Presence::UserRow> &users, const QString &ownName)
{
    database_.ExecuteOnLarge(u"UPDATE Users SET LastSign = ? WHERE \"User\" = ?"_s, {request_.now, ownName},
                             u"writing a heartbeat"_s);
    for (Presence::UserRow &row : users)
        if (row.user == ownName)
            row.lastSign = request_.now;
}

} // namespace

QString RandomId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString ReadFileId(dao::Database &database)
{
    if (!database.HasTable(fileTable))
        return {};
    return database
        .Select(u"SELECT FileId FROM "_s % dao::Quoted(fileTable) % u" ORDER BY Id LIMIT 1"_s, {},
                u"reading the file's id"_s)
        .value(0)
        .value(0)
        .toString();
}

News Run(dao::Database &database, Memory &memory, const Request &request)
{
    return Look(database, memory, request).Run();
}

} // namespace Poll
