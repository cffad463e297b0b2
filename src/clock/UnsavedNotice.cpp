#include "clock/UnsavedNotice.h"

#include "platform/system/Say.h"

using namespace Qt::Literals::StringLiterals;

QString UnsavedNotice::Text() const
{
    if (count == 0)
        return {};
    const QString stemps = count == 1 ? Say("1 stemp") : Say("%1 stemps").arg(count);
    if (isParked)
        return Say("Not yet in \"%1\", as %2: %3, kept in \"%4\" until then.").arg(timeFile, trouble, stemps, parkedIn);
    const QString inMemory = Say("%1 in memory only! \"%2\": %3.").arg(stemps, timeFile, trouble);
    return parkedIn.isEmpty() ? inMemory : inMemory + u" \"%1\": %2."_s.arg(parkedIn, parkTrouble);
}

QString TroubleText(dao::ErrorKind kind)
{
    switch (kind) {
    case dao::ErrorKind::Busy:
        return Say("another program has locked it");
    case dao::ErrorKind::Corrupt:
        return Say("it is damaged");
    case dao::ErrorKind::ReadOnly:
        return Say("it or its folder is write-protected");
    case dao::ErrorKind::CannotOpen:
        return Say("it is not there or may not be read");
    case dao::ErrorKind::Full:
        return Say("the disk is full");
    case dao::ErrorKind::JournalMode:
        return Say("another program keeps it in a mode (a write-ahead log) that is not fit for sharing");
    case dao::ErrorKind::Folder:
        return Say("there is a folder of that name");
    case dao::ErrorKind::Foreign:
        return Say("it is a database of another program");
    case dao::ErrorKind::Constraint:
    case dao::ErrorKind::TooLarge:
    case dao::ErrorKind::Stopped:
    case dao::ErrorKind::Other:
        break;
    }
    return Say("it could not be written");
}
