#include "clock/NoteText.h"

#include "platform/dao/Database.h"
#include "platform/system/Say.h"

#include <QDate>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype ownLineFrom = 51; // characters

}

QString DatedNote(const QString &text, const QDate &day)
{
    const bool ownLine = text.toUcs4().size() >= ownLineFrom;
    return day.toString(u"yyyy.MM.dd") + (ownLine ? "\r\n"_L1 : " - "_L1) + text;
}

std::vector<Note> ReadNotes(dao::Database &localDB)
{
    std::vector<Note> notes;
    const auto text = [](const QVariant &value) {
        return dao::IsTooLarge(value) ? Say("(too large to be read)") : value.toString();
    };
    for (const QVariantList &row :
         localDB.SelectRows({u"NotesList"_s, {u"JobID"_s, u"Note"_s, u"Id"_s}}, u"reading the notes"_s))
        notes.push_back({text(row[0]), text(row[1]), row[2].toLongLong()});
    return notes;
}

void AddNote(dao::Database &localDB, const Note &note)
{
    localDB.Insert(u"INSERT INTO NotesList (JobID, Note) VALUES (?, ?)"_s, {note.jobID, note.text}, u"adding a note"_s);
}

void DeleteNote(dao::Database &localDB, qint64 id)
{
    localDB.Execute(u"DELETE FROM NotesList WHERE Id = ?"_s, {id}, u"deleting a note"_s);
}

std::optional<qint64> FirstNoteOn(dao::Database &localDB, const QString &jobID)
{
    const QString purpose = u"finding a job's notes"_s;
    QList<QVariantList> found;
    localDB.OnLarge(purpose, [&](bool) {
        found = localDB.Select(u"SELECT min(Id) FROM NotesList WHERE JobID = ?"_s, {jobID}, purpose);
    });
    if (found.isEmpty() || found[0][0].isNull())
        return std::nullopt;
    return found[0][0].toLongLong();
}
