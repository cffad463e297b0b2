#include "platform/dao/Error.h"
#include "platform/system/Say.h"
#include "startup/DataFiles.h"
#include "startup/Mending.h"
#include "startup/Module1.h"
#include "startup/PersonalFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

// Making, mending and opening the per-login database.

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

QString FailureMessage(const QString &path, const dao::Held &held)
{
    switch (held.failure) {
    case dao::HeldFailure::HeldByAnotherCopy:
        return Say("The program is already running with the file\n%1").arg(path);
    case dao::HeldFailure::InUseElsewhere:
        return Say("The file\n%1\nis in use by another program, or lies on a drive that grants no locks. "
                   "Close that program and start again.")
            .arg(path);
    case dao::HeldFailure::NotWritable:
        if (held.kind == dao::ErrorKind::Full)
            return Say("The file\n%1\ncannot be written: the disk is full. Make room on it and start again.").arg(path);
        if (held.kind == dao::ErrorKind::ReadOnly || held.kind == dao::ErrorKind::CannotOpen)
            return Say("The file\n%1\ncannot be written: you may not write to it, or not in its folder. "
                       "Please ask for the right to do both.")
                .arg(path);
        return Say("The file\n%1\ncannot be read or written: its drive does not work as it should.").arg(path);
    case dao::HeldFailure::None:
    case dao::HeldFailure::Damaged:
    case dao::HeldFailure::Missing:
        break;
    }
    if (!QFileInfo(path).isDir())
        return Say("The file\n%1\nis not there. Please start again.").arg(path);
    return Say("Where the program keeps its file\n%1\nthere is a folder of that name. Please rename it.").arg(path);
}

QString CannotOpenMessage(const QString &path)
{
    constexpr int cannotOpen = 14; // SQLite's number for a file that is not there
    return Say("Cannot open %1 (Error:%2)").arg(path).arg(cannotOpen);
}

// A per-login database without rows. A template that is damaged, or not there, is done without: the code knows the tables.
void MakeWithoutTemplate(const QString &target)
{
    QFile file(target);
    if (!file.open(QFile::WriteOnly | QFile::NewOnly))
        throw dao::Error(dao::ErrorKind::ReadOnly, QStringLiteral("making the per-login database"), target,
                         file.errorString());
    file.close();
    dao::Database database = dao::Database::OpenDatabase(target);
    PersonalFile::Complete(database);
}

struct Made
{
    std::optional<dao::ErrorKind> failure; // nothing: it was made
    QString message;
};

// Makes a per-login database as `target`, which is in the way of nobody.
Made MakeLocalDB(const QString &blank, const QString &target, bool needsTemplate)
{
    QFile::remove(target);
    try {
        std::optional<dao::ErrorKind> failure = DataFiles::CopyTemplate(blank, target);
        if (!failure
            && dao::Database::OpenHeld(target, PersonalFile::OwnTables()).failure == dao::HeldFailure::Damaged) {
            QFile::remove(target);
            failure = dao::ErrorKind::Corrupt;
        }
        const bool canDoWithout = failure == dao::ErrorKind::Corrupt || !needsTemplate;
        if (failure && (!canDoWithout || *failure == dao::ErrorKind::Full || *failure == dao::ErrorKind::ReadOnly))
            return {failure, {}};
        if (!failure)
            return {};
        MakeWithoutTemplate(target);
        return {std::nullopt, Say("The template \"%1\" is damaged or missing. The file was made without it; "
                                  "please install the program again.")
                                  .arg(QFileInfo(blank).fileName())};
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        QFile::remove(target);
        return {error.Kind(), {}};
    }
}

QString MendLocalDB(const QString &path, const QString &blank, const QDateTime &now)
{
    QString made; // what is to be said of it
    const QString message = Mending::Mend(path, blank, now,
                                          {[&](const QString &target) {
                                               const Made result = MakeLocalDB(blank, target, false);
                                               made = result.message;
                                               return result.failure;
                                           },
                                           PersonalFile::Salvage});
    return made.isEmpty() ? message : message + QStringLiteral("\n\n") + made;
}

// Complete, under its own name at once.
Made MakeFirstLocalDB(const QString &path, const QString &blank)
{
    const QString made = path + QStringLiteral(".made");
    const Made result = MakeLocalDB(blank, made, true);
    if (!result.failure && !QFile::rename(made, path))
        QFile::remove(made); // another copy of the program was faster
    return result;
}

} // namespace

namespace Module1 {

OpenedLocalDB OpenLocalDB(const Identity &identity, const QDateTime &now)
{
    const QString path = identity.LocalDBPath;
    const QString blank = identity.InAppFolder(QStringLiteral("blank Stemp.mdb"));
    OpenedLocalDB opened;
    Mending::FinishInterrupted(path);
    if (!QFileInfo::exists(path)) {
        const Made made = MakeFirstLocalDB(path, blank);
        if (made.failure)
            return {{}, DataFiles::WhyNotMade(*made.failure, blank, path), CannotOpenMessage(path)};
        opened.message = made.message;
    }
    dao::Held held = dao::Database::OpenHeld(path, PersonalFile::OwnTables());
    if (held.failure == dao::HeldFailure::Damaged) {
        qCWarning(log) << path << "is damaged:" << held.detail;
        opened.message = MendLocalDB(path, blank, now);
        held = dao::Database::OpenHeld(path, PersonalFile::OwnTables());
        if (held.failure == dao::HeldFailure::Damaged) // nothing could take its place
            return opened;
    }
    if (held.failure != dao::HeldFailure::None)
        return {{},
                FailureMessage(path, held),
                held.failure == dao::HeldFailure::Missing ? CannotOpenMessage(path) : QString()};
    opened.database = std::move(held.database);
    try {
        PersonalFile::Complete(opened.database);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        opened.message += Say("The file\n%1\nlacks tables, and they could not be made. Some of your jobs, notes "
                              "or messages cannot be kept.")
                              .arg(path);
    }
    return opened;
}

} // namespace Module1
