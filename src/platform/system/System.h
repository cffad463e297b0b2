#pragma once

#include <QString>

// What the operating system knows of this run. Virtual, so that a test can say "network drive" or another login.
class System
{
public:
    virtual ~System() = default;

    virtual QString LoginName() const;        // as the system spells it; empty when it knows none
    virtual QString CurrentFolder() const;    // absolute, the platform's own separators, no trailing one
    virtual QString ExecutableName() const;   // the program's own file name without folder and suffix, "stemp"
    virtual QString ExecutableSuffix() const; // ".exe" on Windows, empty elsewhere
    virtual bool HasDriveLetters() const;     // Windows only
    // Whether `folder` lies on a mounted network file system (nfs, cifs, smb, sshfs and their like).
    virtual bool IsNetworkMount(const QString &folder) const;

    // Whether a file system of this type, as the system names it ("nfs4", "fuse.sshfs"), lies on another machine.
    static bool IsNetworkFileSystem(const QString &type);
};
