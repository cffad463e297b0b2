#include "startup/PersonalFile.h"

#include "clock/ParkedRows.h"
#include "platform/dao/Completion.h"
#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"
#include "platform/system/Say.h"

#include <QHash>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

// In the order in which a file is completed; as in the template.
const QList<dao::TableDef> &Tables()
{
    const QString text = u"TEXT"_s;
    const QString number = u"INTEGER"_s;
    static const QList<dao::TableDef> tables{
        {u"Projects"_s, {{u"JobID"_s, text, true, true}, {u"JobName"_s, text}}, {{u"JobID"_s, {u"JobID"_s}, true}}},
        {u"NotesList"_s, {{u"JobID"_s, text, true}, {u"Note"_s, text}}, {}},
        {u"MessageBuffer"_s,
         {{u"To"_s, text, true}, {u"Message"_s, text}, {u"MessageId"_s, text}, {u"BatchId"_s, text}},
         {{u"MessageId"_s, {u"MessageId"_s}}}},
        {u"MessageHistory"_s,
         {{u"MessageId"_s, text, false, true},
          {u"Received"_s, number, false, true},
          {u"Unread"_s, number, false, true},
          {u"Person"_s, text},
          {u"Message"_s, text},
          {u"Time"_s, u"REAL"_s},
          {u"Reached"_s, number}},
         {{u"MessageId"_s, {u"MessageId"_s, u"Received"_s}, true}, {u"Unread"_s, {u"Unread"_s}}}},
        {u"MessageAcknowledgements"_s,
         {{u"FileId"_s, text, false, true}, {u"MessageId"_s, text, false, true}, {u"Kind"_s, number, false, true}},
         {{u"MessageId"_s, {u"MessageId"_s}}}},
        {u"PersonalStatus"_s, {{u"Status"_s, text}}, {}},
        ParkedRows::Layout(),
    };
    return tables;
}

// What a person calls the rows of a table.
QString NameOf(const QString &table)
{
    const QHash<QString, QString> names{
        {u"Projects"_s, Say("personal jobs")},
        {u"NotesList"_s, Say("notes")},
        {u"MessageBuffer"_s, Say("messages to be sent")},
        {u"MessageHistory"_s, Say("messages")},
        {u"PersonalStatus"_s, Say("status texts")},
        {ParkedRows::Layout().name, Say("stemps that wait for their file")},
    };
    return names.value(table);
}

} // namespace

QStringList PersonalFile::OwnTables()
{
    QStringList names;
    for (const dao::TableDef &table : Tables())
        if (table.name != u"Projects"_s) // a company database has one, too
            names.append(table.name);
    return names;
}

void PersonalFile::Complete(dao::Database &localDB)
{
    for (const dao::TableDef &table : Tables())
        dao::CompleteTable(localDB, table);
}

QString PersonalFile::Salvage(const QString &damaged, dao::Database &localDB)
{
    QStringList parts;
    int windows = 0;
    for (const dao::Salvaged &salvaged : dao::Salvage(damaged, localDB, OwnTables())) {
        const QString name = NameOf(salvaged.table);
        if (!name.isEmpty())
            parts.append(u"%1: %2"_s.arg(name).arg(salvaged.rows));
        else if (localDB.FieldNames(salvaged.table).contains(u"CapEnglish"_s, Qt::CaseInsensitive))
            ++windows;
    }
    if (windows > 0)
        parts.append(Say("windows with their texts, places and settings: %1").arg(windows));
    if (parts.isEmpty())
        return Say("Nothing in it could be read.");
    return Say("What could still be read came along: %1.").arg(parts.join(u", "_s));
}
