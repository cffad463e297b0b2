#include "board/Board.h"

#include "platform/system/Say.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList UpperCaseNames(const QList<Presence::UserRow> &users)
{
    QStringList names;
    names.reserve(users.size());
    for (const Presence::UserRow &user : users)
        names.append(user.user.toUpper());
    return names;
}

Board::Row RowOfNoUser(const QString &name)
{
    Board::Row row;
    row.name = name.isEmpty() ? Say("(unknown)") : name;
    row.isUser = false;
    return row;
}

} // namespace

bool Board::IsOwn(const QString &name) const
{
    return Presence::SameName(name, OwnName);
}

QStringList Board::RecipientsOf(const QString &recipient) const
{
    QStringList recipients;
    for (const QString &name : UserNames)
        if ((name == recipient || recipient == u"ALL"_s) && !IsOwn(name) && !name.isEmpty())
            recipients.append(name);
    return recipients;
}

void Board::TakeUsers(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now)
{
    if (UpperCaseNames(users) != UserNames)
        Users_Init(users, identity, now);
    else
        FillRows(users, identity, now);
}

void Board::Users_Init(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now)
{
    UserNames = UpperCaseNames(users);
    rows_.assign(static_cast<std::size_t>(users.size()), Row());
    Alert = false;
    FillRows(users, identity, now);
}

void Board::FillRows(const QList<Presence::UserRow> &users, const QString &identity, const QDateTime &now)
{
    clearedComments_.clear();
    OwnName = identity;
    for (std::size_t i = 0; const Presence::UserRow &user : users) {
        Row &row = rows_[i++];
        row.name = user.user;
        row.state = user.state;
        row.comment = user.comment;
        row.lastSign = LastSign(user, now);
        row.work = user.state < 0 ? user.work : std::nullopt; // a copy that knows no jobs clears none
        if (Presence::SameName(user.user, identity))
            OwnName = user.user;
    }
}

// Clocks differ from machine to machine: when a sign was seen to follow another one, the own clock tells when that was.
std::optional<QDateTime> Board::LastSign(const Presence::UserRow &user, const QDateTime &now)
{
    if (!user.lastSign)
        return std::nullopt;
    const QString name = user.user.toUpper();
    const auto known = signs_.find(name);
    if (known == signs_.end())
        return signs_.insert(name, {*user.lastSign, std::min(*user.lastSign, now)})->heard;
    if (known->written != *user.lastSign)
        *known = {*user.lastSign, now};
    return known->heard;
}

std::optional<int> Board::ShowMessages(const QList<UnreadMessage> &unread)
{
    for (const auto &[row, comment] : clearedComments_)
        rows_[row].comment = comment;
    clearedComments_.clear();

    const QHash<QString, UnreadMessage> shown = TakeShownMessages(unread);
    // Senders who are no users come back below if they have to.
    rows_.resize(static_cast<std::size_t>(UserCount()));
    // By the name in upper case. Where several users have the same, as a file from elsewhere may hold, it is the first.
    QHash<QString, std::size_t> rowOfSender;
    for (std::size_t i = rows_.size(); i-- > 0;)
        if (!rows_[i].name.isEmpty())
            rowOfSender.insert(UserNames[static_cast<qsizetype>(i)], i);

    for (const UnreadMessage &message : unread) {
        const QString sender = message.from.toUpper();
        auto row = rowOfSender.constFind(sender);
        if (row == rowOfSender.cend()) {
            row = rowOfSender.insert(sender, rows_.size());
            rows_.push_back(RowOfNoUser(message.from));
        }
        Row &place = rows_[*row];
        if (place.message)
            ++place.waiting;
        else
            place.message = shown.value(sender, message);
    }
    Alert = !unread.isEmpty();
    if (!Alert || known_.contains(unread.last().id))
        return std::nullopt;
    for (qsizetype i = unread.size(); i-- > 0 && !known_.contains(unread[i].id);) // new ones stand last
        known_.insert(unread[i].id);
    return static_cast<int>(rowOfSender.value(unread.last().from.toUpper()));
}

// Those that are still unread, by their senders in upper case.
QHash<QString, UnreadMessage> Board::TakeShownMessages(const QList<UnreadMessage> &unread)
{
    QSet<QString> shownIds;
    for (Row &row : rows_) {
        if (row.message)
            shownIds.insert(row.message->id);
        row.message.reset();
        row.waiting = 0;
    }
    QHash<QString, UnreadMessage> shown;
    if (shownIds.isEmpty())
        return shown;
    for (const UnreadMessage &message : unread)
        if (shownIds.contains(message.id))
            shown.insert(message.from.toUpper(), message);
    return shown;
}

QString Board::ClearMessage(int row)
{
    const auto index = static_cast<std::size_t>(row);
    Row &cleared = rows_.at(index);
    if (!cleared.message)
        return {};
    const QString id = cleared.message->id;
    cleared.message.reset();
    clearedComments_[index] = std::exchange(cleared.comment, {});
    Alert = std::any_of(rows_.cbegin(), rows_.cend(), [](const Row &other) { return other.message.has_value(); });
    return id;
}
