#include "startup/Module1.h"

#include "clock/UnsavedNotice.h"
#include "platform/dao/Error.h"
#include "platform/system/Say.h"
#include "platform/system/System.h"
#include "startup/DataFiles.h"
#include "startup/JobDatabase.h"
#include "startup/PersonalFile.h"

#include <QFileInfo>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

// As the end of a sentence.
QString NotMadeText(dao::ErrorKind kind)
{
    switch (kind) {
    case dao::ErrorKind::CannotOpen:
        return Say("neither it nor its template \"Blank.mdb\" is there");
    case dao::ErrorKind::Corrupt:
        return Say("it is not there, and its template \"Blank.mdb\" is damaged");
    default:
        return Say("it is not there and could not be made: %1").arg(TroubleText(kind));
    }
}

} // namespace

namespace Module1 {

bool IsNetworkPath(const QString &path)
{
    const QString drive = path.left(2);
    if (drive == QStringLiteral("\\\\"))
        return true;
    return drive != QStringLiteral("C:") && drive != QStringLiteral("D:");
}

bool FindAppFolder(const System &system, Identity &identity)
{
    const QString executable = system.ExecutableName() + system.ExecutableSuffix();
    identity.AppFolder = system.CurrentFolder();
    identity.DevMode = false;
    if (DataFiles::FileExists(identity.InAppFolder(executable)))
        return true;
    if (!DataFiles::FileExists(QStringLiteral("c:\\src\\stemp6\\play\\") + executable))
        return false;
    // A convenience of the build machine: the data then come from the network.
    identity.AppFolder = QStringLiteral("K:\\winapp\\stempplay\\NetDrive");
    identity.DevMode = true;
    return true;
}

void FindKindOfDrive(const System &system, Identity &identity)
{
    identity.OnNetworkDrive =
        system.HasDriveLetters() ? IsNetworkPath(identity.AppFolder) : system.IsNetworkMount(identity.AppFolder);
}

void TakeLogin(const System &system, Identity &identity)
{
    identity.WinUserName = system.LoginName().trimmed();
    identity.UserInitials = identity.WinUserName.toUpper();
}

LocalDBChoice ChooseLocalDBPath(Identity &identity, const QString &login, JobDatabase &jobDatabase)
{
    const QString refusal = IdentityRefusal(login);
    identity.UserInitials = refusal.isEmpty() ? login : QString(); // else the settings may hold them
    const QString candidate = identity.InAppFolder(LoginFileName(login));
    if (DataFiles::FileExists(candidate))
        return {candidate, {}};
    if (!identity.OnNetworkDrive) {
        const QString shared = identity.InAppFolder(QStringLiteral("Stemp.mdb"));
        if (DataFiles::FileExists(shared))
            return {shared, {}};
        return {refusal.isEmpty() ? candidate : QString(), refusal};
    }
    const QString jobs = identity.InAppFolder(QStringLiteral("Jobs.mdb"));
    if (login.isEmpty() || !DataFiles::FileExists(jobs))
        return {{}, refusal};
    if (const std::optional<QString> user = jobDatabase.MatchLoginToUser(jobs, login)) {
        const QString userRefusal = IdentityRefusal(*user);
        if (!userRefusal.isEmpty())
            return {{}, userRefusal};
        identity.UserInitials = *user;
    }
    if (identity.UserInitials.isEmpty())
        return {{}, refusal};
    return {LocalDBPathOf(identity), {}};
}

QString LocalDBPathOf(const Identity &identity)
{
    const QString own = identity.InAppFolder(identity.UserInitials + QStringLiteral(" Stemp.mdb"));
    if (identity.OnNetworkDrive || !identity.NeedsInitials())
        return own;
    // Found again by the login. Earlier versions named it by the initials, and asked for these at every start.
    const QString path = identity.InAppFolder(LoginFileName(identity.WinUserName.toUpper()));
    if (dao::Database::OpenHeld(own, PersonalFile::OwnTables()).failure == dao::HeldFailure::None)
        DataFiles::CopyTemplate(own, path);
    return path;
}

TimeDbChoice PrepareTimeDb(const Identity &identity, const QDateTime &now, bool foundDamaged)
{
    TimeDbChoice choice{identity.InAppFolder(identity.UserInitials + QStringLiteral(".mdb")), {}, {}};
    std::optional<QString> aside;
    try {
        if (DataFiles::FileExists(choice.path)
            && (DataFiles::IsDamagedTimeDb(choice.path) || (foundDamaged && !DataFiles::MendTimeDb(choice.path)))) {
            aside = DataFiles::SetAside(choice.path, now);
            choice.message = DataFiles::SetAsideMessage(choice.path, aside);
        }
        if (!QFileInfo::exists(choice.path))
            DataFiles::CreateTimeDb(identity.InAppFolder(QStringLiteral("Blank.mdb")), choice.path);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        choice.trouble = NotMadeText(error.Kind());
        if (aside)
            choice.message = Say("The file %1 is damaged. It was set aside as\n%2\nNo new one could be made yet.")
                                 .arg(choice.path, *aside);
    }
    return choice;
}

} // namespace Module1
