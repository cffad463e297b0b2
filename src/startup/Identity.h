#pragma once

#include <QString>

// Who runs the program, and where. Settled by Main, step by step.
struct Identity
{
    QString AppFolder; // the program folder, the platform's own separators, no trailing one
    bool OnNetworkDrive = false;
    bool DevMode = false; // runs from its makers' development folder
    QString WinUserName;  // the login name as the system spells it
    QString UserInitials; // the identity, upper case; "NN" when nothing is known
    QString UserFullName; // empty when not known
    QString LocalDBPath;  // the per-login database

    bool NeedsInitials() const; // the login can't be the identity
    QString InAppFolder(const QString &fileName) const;
};

// Why `name` can't be an identity, as a sentence for the person; empty when it can. An identity becomes the name of files and
// of a table in the company database, so what file systems, the program itself or the messages' recipients reserve is refused.
// The empty name is not refused here: it means "not known yet".
QString IdentityRefusal(const QString &name);

// The name of the per-login database of a login, which may be none that can be an identity.
QString LoginFileName(const QString &login);
