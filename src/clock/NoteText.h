#pragma once

#include <QString>

#include <optional>
#include <vector>

class QDate;

namespace dao {
class Database;
}

// A dated note on a job, as table NotesList of the per-login database keeps it.
struct Note
{
    QString jobID; // any text, also of no listed job
    QString text;  // with its date
    qint64 id = 0; // of its row, once it is stored
};

// What is stored of a trimmed text: the day as yyyy.MM.dd, then " - " and a text of at most 50 characters on the same line, or
// CR LF and a longer one on lines of its own. The text itself stays as it is, line breaks included. Characters are those of
// Unicode: most emoji and a line break count as one.
QString DatedNote(const QString &text, const QDate &day);

// All throw dao::Error.
std::vector<Note> ReadNotes(dao::Database &localDB); // in the order in which they were added
void AddNote(dao::Database &localDB, const Note &note);
void DeleteNote(dao::Database &localDB, qint64 id);
std::optional<qint64> FirstNoteOn(dao::Database &localDB, const QString &jobID); // same job as for the sums
