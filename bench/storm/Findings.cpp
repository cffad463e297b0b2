#include "bench/storm/Findings.h"

#include "bench/storm/Storm.h"
#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Storm::Journal;

namespace {

const QString purpose = u"looking at what a storm has left"_s;

struct Message
{
    QSet<int> recipients;   // known from the sender's journal
    QMap<int, int> arrived; // how often with whom
};
using Messages = QMap<QString, Message>; // by their texts

void ExpectNone(dao::Database &database, const QString &table, QStringList &faults)
{
    const QString rows =
        database.Select(u"SELECT count(*) FROM "_s + dao::Quoted(table), {}, purpose).value(0).value(0).toString();
    if (rows != u"0"_s)
        faults.append(rows + u" rows left in "_s + table + u" of "_s + database.Path());
}

dao::Database OpenChecked(const QString &path, QStringList &faults)
{
    dao::Database database = dao::Database::OpenDatabase(path);
    const QString check = database.Select(u"PRAGMA integrity_check"_s, {}, purpose).value(0).value(0).toString();
    if (check != u"ok"_s)
        faults.append(path + u": "_s + check);
    return database;
}

void LookAtCompany(const QString &folder, int copies, QStringList &faults)
{
    dao::Database database = OpenChecked(Storm::CompanyFile(folder), faults);
    const qsizetype users = Presence::ReadUsers(database).size();
    if (users != copies)
        faults.append(u"%1 users for %2 copies"_s.arg(users).arg(copies));
    for (const QString &table : database.Texts(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s, purpose))
        if (table != u"Users"_s && table != u"Projects"_s && table != u":File"_s)
            ExpectNone(database, table, faults);
}

void LookAtLocal(const QString &folder, int copy, Messages &messages, QStringList &faults)
{
    dao::Database database = OpenChecked(Storm::LocalFile(folder, copy), faults);
    ExpectNone(database, u"MessageBuffer"_s, faults);
    ExpectNone(database, u"MessageAcknowledgements"_s, faults);
    for (const QVariantList &row : database.Select(u"SELECT Person, Message FROM Arrived UNION ALL "
                                                   "SELECT Person, Message FROM MessageHistory WHERE Received"_s,
                                                   {}, purpose)) {
        const QString text = row[1].toString();
        ++messages[text].arrived[copy];
        if (!Presence::SameName(row[0].toString(), Storm::NameOf(text.section(u'.', 0, 0).toInt())))
            faults.append(u"\"%1\" came from %2"_s.arg(text, row[0].toString()));
    }
}

void ReadJournal(const QString &folder, int copy, const QMap<QString, int> &copyOf, Messages &messages,
                 Findings &findings)
{
    for (const Journal::Line &line : Journal::Read(folder, copy)) {
        switch (line.kind) {
        case Journal::Kind::Queued:
            for (const QString &recipient : line.fields.mid(1))
                messages[line.fields.at(0)].recipients.insert(copyOf.value(recipient, -1));
            break;
        case Journal::Kind::Poll:
            findings.polls.push_back(line.fields.at(0).toDouble());
            break;
        case Journal::Kind::Locked:
            ++findings.locked;
            break;
        case Journal::Kind::Error:
            findings.faults.append(u"copy %1: %2"_s.arg(copy).arg(line.fields.join(u' ')));
            break;
        }
    }
}

void Count(const QString &text, const Message &message, Findings &findings)
{
    // Each text says how many it was for: one that died before it could note it has sent it to all of them or to none.
    const int intended =
        message.arrived.isEmpty() ? static_cast<int>(message.recipients.size()) : text.section(u' ', -1).toInt();
    findings.messages += intended;
    findings.lost += intended - static_cast<int>(message.arrived.size());
    for (const int times : message.arrived)
        findings.doubled += times - 1;
    for (auto arrived = message.arrived.keyBegin(); arrived != message.arrived.keyEnd(); ++arrived)
        if (!message.recipients.isEmpty() && !message.recipients.contains(*arrived))
            findings.faults.append(u"\"%1\" came to copy %2"_s.arg(text).arg(*arrived));
}

} // namespace

double Findings::Poll(double share) const
{
    return polls.empty() ? 0 : polls.at(static_cast<std::size_t>(share * static_cast<double>(polls.size() - 1)));
}

Findings FindAll(const QString &folder, int copies)
{
    Findings findings;
    try {
        Messages messages;
        QMap<QString, int> copyOf;
        for (int copy = 0; copy < copies; ++copy)
            copyOf.insert(Storm::NameOf(copy), copy);
        for (int copy = 0; copy < copies; ++copy) {
            ReadJournal(folder, copy, copyOf, messages, findings);
            LookAtLocal(folder, copy, messages, findings.faults);
        }
        LookAtCompany(folder, copies, findings.faults);
        for (auto message = messages.cbegin(); message != messages.cend(); ++message)
            Count(message.key(), message.value(), findings);
    } catch (const dao::Error &error) {
        findings.faults.append(error.Text());
    }
    std::sort(findings.polls.begin(), findings.polls.end());
    return findings;
}
