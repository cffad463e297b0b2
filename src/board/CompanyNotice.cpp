#include "board/CompanyNotice.h"

#include "platform/system/Say.h"

#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace {

// Where a drive grants no locks it stays so until somebody mends the drive.
QString WhatHelps(dao::ErrorKind kind)
{
    const QString locks = Say(
        "its drive does not let programs lock files, as some network drives do. If this goes on, move the file to a "
        "drive of another kind, or have the network drive set up with file locking.");
    switch (kind) {
    case dao::ErrorKind::Full:
        return Say("Its drive is full. Make room on it.");
    case dao::ErrorKind::ReadOnly:
    case dao::ErrorKind::CannotOpen:
        return Say("The file or its folder is write-protected for you. Ask for the right to write in the folder, too.");
    case dao::ErrorKind::Busy:
        return Say("Either another program keeps it locked, or ") + locks;
    default:
        return Say("Perhaps ") + locks;
    }
}

QString WhatIsWrong(std::optional<dao::ErrorKind> failure)
{
    if (failure == dao::ErrorKind::Busy)
        return Say("another program keeps the company database locked.");
    if (failure == dao::ErrorKind::JournalMode)
        return Say(
            "another program keeps the company database in a mode (a write-ahead log) in which it can't be shared. "
            "Close that program.");
    if (failure == dao::ErrorKind::Corrupt)
        return Say("the company database is damaged. Please have it restored.");
    if (failure == dao::ErrorKind::CannotOpen)
        return Say("the company database is not there, or its drive is away.");
    return Say("the company database does not answer.");
}

} // namespace

QString CompanyNotice::Text() const
{
    const QString text = TextOfFile();
    if (withKeptStatuses.isEmpty())
        return text;
    return Say("%1 The new status of %2 waits here and is written as soon as that is possible.")
        .arg(text, withKeptStatuses.join(u", "_s))
        .trimmed();
}

QString CompanyNotice::TextOfFile() const
{
    if (!isThere)
        return (failure && failure != dao::ErrorKind::CannotOpen
                    ? Say("The file that the settings name as the company database is not used: %1.")
                          .arg(WhyNotUsed(*failure))
                    : Say("The company database is not there."))
               + Say(" Colleagues are shown as they were known last.");
    if (isStale) {
        const QString since =
            lastCurrent.isValid()
                ? Say("Not current since %1: ").arg(QLocale().toString(lastCurrent, QLocale::ShortFormat))
                : Say("Not current: ");
        return since + WhatIsWrong(failure);
    }
    if (!canBeWritten)
        return Say("The company database can be read, but not written. Your state and your messages wait here.");
    return {};
}

QString WhyNotUsed(dao::ErrorKind failure)
{
    switch (failure) {
    case dao::ErrorKind::Folder:
        return Say("it is a folder");
    case dao::ErrorKind::Corrupt:
        return Say("it is no database, or is damaged");
    case dao::ErrorKind::Foreign:
        return Say("it is a database of another program");
    case dao::ErrorKind::CannotOpen:
        return Say("it is not there, or you may not read it");
    default:
        return Say("it cannot be read");
    }
}

QString RefusedWriteText(const QString &path, const dao::Error &error)
{
    return Say("The company database\n%1\ncan be read, but not written. %2\n\nUntil then you see your "
               "colleagues, but they do not see you, and your messages wait on this machine.")
        .arg(path, WhatHelps(error.Kind()));
}
