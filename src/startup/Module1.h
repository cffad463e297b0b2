#pragma once

#include "platform/dao/Database.h"
#include "startup/Identity.h"

#include <QString>

#include <optional>

class JobDatabase;
class Program;
class System;

// The steps of the start-up that need no window: the program folder, the person's identity and the choice of the data files.
namespace Module1 {

// Whether a path lies on a network drive, told by its first two characters: "\\" does, "C:" and "D:" do not, anything else
// does. With regard to case, so "c:" counts as network.
bool IsNetworkPath(const QString &path);

// Settles AppFolder and DevMode; false when the program's own executable is neither in the current folder nor in the
// development folder.
bool FindAppFolder(const System &system, Identity &identity);

// Settles OnNetworkDrive. Where there are no drive letters, the mounted file system alone tells.
void FindKindOfDrive(const System &system, Identity &identity);

// Settles WinUserName and UserInitials from the login name.
void TakeLogin(const System &system, Identity &identity);

struct LocalDBChoice
{
    QString path;    // empty: the person must be asked for initials
    QString refusal; // why the login, or the identity that was found, can't serve
};

// Chooses the identity and the per-login database by the login. On a network drive the company database there may give the identity
// of the matching user. A login that can't be an identity leaves that empty where its file is there: the settings hold it.
LocalDBChoice ChooseLocalDBPath(Identity &identity, const QString &login, JobDatabase &jobDatabase);

// The per-login database once initials were asked for: that of the identity, or of a login that can't be one on a local drive.
QString LocalDBPathOf(const Identity &identity);

struct OpenedLocalDB
{
    dao::Database database; // closed: the program can't run, `message` says why
    QString message;        // for the person; also set when a damaged file was set aside
    QString cannotOpen;     // a message of its own after the other: the file is not there
};

// Opens and holds the per-login database at identity.LocalDBPath, made from its template when it is missing. What the file lacks
// is made. A damaged file is set aside, and what can still be read of it is copied into a new one; a file that another running
// copy holds is never touched.
OpenedLocalDB OpenLocalDB(const Identity &identity, const QDateTime &now);

struct TimeDbChoice
{
    QString path;
    QString message; // for the person: a damaged file was set aside; empty otherwise
    QString trouble; // why there is none that can be used, as the end of a sentence; empty when there is
};

// Makes sure that the time database of the identity is there: makes a missing one from its template, and sets a damaged one
// aside for a new one. The file is read through for damage; one that was `found damaged` while it was used is examined more
// closely, and its indexes are made anew if that will do. For the start and whenever it can't be opened later.
TimeDbChoice PrepareTimeDb(const Identity &identity, const QDateTime &now, bool foundDamaged = false);

} // namespace Module1
