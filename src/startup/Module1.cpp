#include "startup/Module1.h"

#include "platform/dao/Error.h"
#include "platform/system/System.h"
#include "startup/DataFiles.h"
#include "startup/JobDatabase.h"

#include <QFileInfo>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

QString SetAsideMessage(const QString &path, const std::optional<QString> &aside)
{
    if (!aside)
        return QStringLiteral("The file %1 is damaged and could not be set aside.").arg(path);
    return QStringLiteral("The file %1 is damaged. It was set aside as\n%2\nand a new one was made.").arg(path, *aside);
}

QString FailureMessage(const QString &path, const dao::Held &held)
{
    switch (held.failure) {
    case dao::HeldFailure::HeldByAnotherCopy:
        return QStringLiteral("The program is already running with the file\n%1").arg(path);
    case dao::HeldFailure::InUseElsewhere:
        return QStringLiteral("The file\n%1\nis in use by another program, or lies on a drive that grants no locks. "
                              "Close that program and start again.")
            .arg(path);
    case dao::HeldFailure::NotWritable:
        return QStringLiteral(
                   "The file\n%1\ncannot be written. Check that you may write in the program folder and that "
                   "the disk is not full.")
            .arg(path);
    case dao::HeldFailure::None:
    case dao::HeldFailure::Damaged:
    case dao::HeldFailure::Missing:
        break;
    }
    constexpr int cannotOpen = 14; // the engine's number for a file that is not there
    return QStringLiteral(
               "Cannot open %1 (Error:%2)\n\nIts template \"blank Stemp.mdb\" is missing, or there is no room on "
               "the disk for a copy of it.")
        .arg(path)
        .arg(cannotOpen);
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
    const QString candidate = identity.InAppFolder(login + QStringLiteral(" Stemp.mdb"));
    if (DataFiles::FileExists(candidate))
        return {candidate, {}};
    if (!identity.OnNetworkDrive) {
        const QString shared = identity.InAppFolder(QStringLiteral("Stemp.mdb"));
        return {DataFiles::FileExists(shared) ? shared : candidate, {}};
    }
    const QString jobs = identity.InAppFolder(QStringLiteral("Jobs.mdb"));
    if (login.isEmpty() || !DataFiles::FileExists(jobs))
        return {};
    if (const std::optional<QString> user = jobDatabase.MatchLoginToUser(jobs, login)) {
        const QString refusal = IdentityRefusal(*user);
        if (!refusal.isEmpty())
            return {{}, refusal};
        identity.UserInitials = *user;
    }
    return {LocalDBPathOf(identity), {}};
}

QString LocalDBPathOf(const Identity &identity)
{
    return identity.InAppFolder(identity.UserInitials + QStringLiteral(" Stemp.mdb"));
}

OpenedLocalDB OpenLocalDB(const Identity &identity, const QDateTime &now)
{
    const QString path = identity.LocalDBPath;
    const QString blank = identity.InAppFolder(QStringLiteral("blank Stemp.mdb"));
    const QStringList tables{QStringLiteral("Projects"), QStringLiteral("NotesList"), QStringLiteral("MessageBuffer"),
                             QStringLiteral("PersonalStatus")};
    DataFiles::CopyTemplate(blank, path);
    dao::Held held = dao::Database::OpenHeld(path, tables);
    if (held.failure != dao::HeldFailure::Damaged) {
        if (held.failure != dao::HeldFailure::None)
            return {dao::Database(), FailureMessage(path, held)};
        return {std::move(held.database), {}};
    }
    qCWarning(log) << path << "is damaged:" << held.detail;
    held.database.Close();
    const std::optional<QString> aside = DataFiles::SetAside(path, now);
    const QString message = SetAsideMessage(path, aside);
    if (!aside || !DataFiles::CopyTemplate(blank, path))
        return {dao::Database(), message};
    held = dao::Database::OpenHeld(path, tables);
    if (held.failure != dao::HeldFailure::None)
        return {dao::Database(), FailureMessage(path, held)};
    return {std::move(held.database), message};
}

TimeDbChoice PrepareTimeDb(const Identity &identity, const QDateTime &now)
{
    TimeDbChoice choice{identity.InAppFolder(identity.UserInitials + QStringLiteral(".mdb")), {}};
    try {
        if (DataFiles::FileExists(choice.path) && DataFiles::IsDamagedTimeDb(choice.path)) {
            const std::optional<QString> aside = DataFiles::SetAside(choice.path, now);
            choice.message = SetAsideMessage(choice.path, aside);
        }
        if (!QFileInfo::exists(choice.path))
            DataFiles::CreateTimeDb(identity.InAppFolder(QStringLiteral("Blank.mdb")), choice.path);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
    return choice;
}

} // namespace Module1
