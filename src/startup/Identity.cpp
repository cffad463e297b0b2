#include "startup/Identity.h"

#include "platform/system/Say.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

namespace {

// "<identity> Stemp.mdb" plus what is put behind it when a damaged file is set aside must stay within 255 bytes.
constexpr qsizetype longestIdentity = 200;

bool IsDeviceName(const QString &upperName)
{
    static const QRegularExpression device(
        QStringLiteral("^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|COM[0-9\u00b9\u00b2\u00b3]|LPT[0-9\u00b9\u00b2\u00b3])$"));
    // Windows looks at the part before the first dot only: "NUL.x.mdb" is the device too.
    return device.match(upperName.section(QLatin1Char('.'), 0, 0).trimmed()).hasMatch();
}

bool IsOwnName(const QString &upperName)
{
    // The program's own files, its tables and indexes in the company database, what belongs to SQLite there, and the
    // recipients that mean everybody.
    static const QStringList own{
        QStringLiteral("BLANK"),    QStringLiteral("JOBS"),  QStringLiteral("STEMP"), QStringLiteral("BLANK JOBS"),
        QStringLiteral("USERS"),    QStringLiteral("ALL"),   QStringLiteral("USER"),  QStringLiteral("BLANK STEMP"),
        QStringLiteral("PROJECTS"), QStringLiteral("JOBID"),
    };
    return own.contains(upperName) || upperName.endsWith(QStringLiteral(" STEMP"))
           || upperName.startsWith(QStringLiteral("SQLITE_")) || upperName.startsWith(QStringLiteral("PRAGMA_"));
}

QString Quoted(const QString &name)
{
    return QStringLiteral("\u201c%1\u201d").arg(name);
}

// Why no file can be named so.
QString FileNameRefusal(const QString &name)
{
    if (name.isEmpty())
        return {};
    const QString quoted = Quoted(name);
    static const QRegularExpression forbidden(QStringLiteral("[<>:\"/\\\\|?*\\x00-\\x1f\\x7f]"));
    const QRegularExpressionMatch match = forbidden.match(name);
    if (match.hasMatch()) {
        const QChar character = match.captured().at(0);
        if (character < QLatin1Char(' ') || character == QChar(0x7f))
            return Say("Your initials become a file name. They cannot contain control characters.");
        return Say("Your initials become a file name. %1 cannot be used because of the character  %2")
            .arg(quoted, character);
    }
    if (name.front() == QLatin1Char('.') || name.back() == QLatin1Char('.') || name.front().isSpace()
        || name.back().isSpace())
        return Say("Your initials become a file name. %1 cannot be used because it begins or ends with a dot "
                   "or a blank.")
            .arg(quoted);
    if (name.toUtf8().size() > longestIdentity)
        return Say("Your initials become a file name. These are too long; please choose shorter ones.");
    if (IsDeviceName(name.toUpper()))
        return Say("%1 cannot be used: the system reserves this name for a device.").arg(quoted);
    return {};
}

} // namespace

QString Identity::InAppFolder(const QString &fileName) const
{
    const QChar separator = QDir::separator();
    if (AppFolder.endsWith(separator)) // the root of a drive
        return AppFolder + fileName;
    return AppFolder + separator + fileName;
}

bool Identity::NeedsInitials() const
{
    return !IdentityRefusal(WinUserName.toUpper()).isEmpty();
}

QString LoginFileName(const QString &login)
{
    const QString rest = QStringLiteral(" Stemp.mdb");
    const bool isTemplate = login.toUpper() == QStringLiteral("BLANK");
    if (!isTemplate && FileNameRefusal(login).isEmpty())
        return login + rest;
    return QLatin1Char('%') + QString::fromLatin1(QUrl::toPercentEncoding(login)).left(longestIdentity) + rest;
}

QString IdentityRefusal(const QString &name)
{
    const QString refusal = FileNameRefusal(name);
    if (refusal.isEmpty() && IsOwnName(name.toUpper()))
        return Say("%1 cannot be used: the program reserves this name for itself.").arg(Quoted(name));
    return refusal;
}
