#pragma once

#include "platform/dao/Error.h"

#include <QDateTime>
#include <QString>

#include <optional>

// The data files on disk: existence, copies of the templates, and setting damaged files aside. Nothing here opens a database
// that could be open already: another handle on it would drop SQLite's locks.
namespace DataFiles {

// Exists and can be read, asked of the file system.
bool FileExists(const QString &path);

// Copies a template under a temporary name and renames it, so that a half copy never stands under the real name. Does nothing
// when `target` exists. The copy's permissions are those of any new file in its folder. Why there is none in the end: CannotOpen
// when the template can't be read, ReadOnly when the folder can't be written, Full.
std::optional<dao::ErrorKind> CopyTemplate(const QString &source, const QString &target);

// What CopyTemplate, or opening a copy of `source`, failed of, as a sentence for the person.
QString WhyNotMade(dao::ErrorKind failure, const QString &source, const QString &target);

// Makes an empty time database from its template; throws dao::Error: CannotOpen where the template is missing, Corrupt where it
// is damaged, Full and ReadOnly as they say.
void CreateTimeDb(const QString &blank, const QString &target);

// Whether the file can't be a time database: damaged, no database, or without the table Stemp. A file that is only locked or
// unreadable is not damaged.
bool IsDamagedTimeDb(const QString &path);

// Makes the indexes of a time database anew; false when it is damaged all the same. Reads more than IsDamagedTimeDb.
bool MendTimeDb(const QString &path);

// Renames a damaged file, and what belongs to it, to "<name>.damaged-<date-time>"; the new path, or nothing when that failed.
std::optional<QString> SetAside(const QString &path, const QDateTime &now);

// For the person: what SetAside has done.
QString SetAsideMessage(const QString &path, const std::optional<QString> &aside);

// Removes what SQLite has left beside a file that is gone: it would be played back into the next file of that name.
void RemoveJournals(const QString &path);

// Whether two paths name one file, under any spelling: drive letter and share name, separators, links.
bool SameFile(const QString &a, const QString &b);

} // namespace DataFiles
