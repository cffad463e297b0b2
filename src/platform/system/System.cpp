#include "platform/system/System.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <lmcons.h>
#else
#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>
#endif

QString System::LoginName() const
{
#ifdef Q_OS_WIN
    wchar_t buffer[UNLEN + 1];
    DWORD size = UNLEN + 1;
    if (!GetUserNameW(buffer, &size))
        return {};
    return QString::fromWCharArray(buffer).trimmed();
#else
    std::vector<char> buffer(1024);
    passwd entry{};
    passwd *found = nullptr;
    while (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE)
        buffer.resize(buffer.size() * 2);
    return found ? QString::fromLocal8Bit(entry.pw_name).trimmed() : QString();
#endif
}

QString System::CurrentFolder() const
{
    return QDir::toNativeSeparators(QDir::currentPath());
}

QString System::ExecutableName() const
{
    QString name = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    if (name.endsWith(ExecutableSuffix(), Qt::CaseInsensitive))
        name.chop(ExecutableSuffix().size());
    return name;
}

QString System::ExecutableSuffix() const
{
#ifdef Q_OS_WIN
    return QStringLiteral(".exe");
#else
    return {};
#endif
}

bool System::HasDriveLetters() const
{
#ifdef Q_OS_WIN
    return true;
#else
    return false;
#endif
}

bool System::IsNetworkMount(const QString &folder) const
{
    return IsNetworkFileSystem(QString::fromLatin1(QStorageInfo(folder).fileSystemType()));
}

bool System::IsNetworkFileSystem(const QString &type)
{
    // The shares of a virtual machine with its own host (9p, virtiofs, vboxsf) are not here: they end on the same desk.
    static const QLatin1String networkTypes[] = {
        QLatin1String("nfs"),    QLatin1String("nfs4"),   QLatin1String("cifs"),       QLatin1String("smb"),
        QLatin1String("smb2"),   QLatin1String("smb3"),   QLatin1String("smbfs"),      QLatin1String("sshfs"),
        QLatin1String("afs"),    QLatin1String("afpfs"),  QLatin1String("ncp"),        QLatin1String("ncpfs"),
        QLatin1String("davfs"),  QLatin1String("davfs2"), QLatin1String("webdav"),     QLatin1String("rclone"),
        QLatin1String("ceph"),   QLatin1String("coda"),   QLatin1String("glusterfs"),  QLatin1String("lustre"),
        QLatin1String("beegfs"), QLatin1String("s3fs"),   QLatin1String("gvfsd-fuse"),
    };
    // A file system in user space shows as "fuse." and its own name.
    const QString fuse = QStringLiteral("fuse.");
    const QString name = type.startsWith(fuse, Qt::CaseInsensitive) ? type.mid(fuse.size()) : type;
    return std::any_of(std::begin(networkTypes), std::end(networkTypes),
                       [&name](QLatin1String network) { return name.compare(network, Qt::CaseInsensitive) == 0; });
}
