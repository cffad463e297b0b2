#pragma once

#include "platform/dao/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

// What the board knows of the company database, and how it says so.
struct CompanyNotice
{
    bool isThere = true;  // else the local copy stands in for it
    bool isStale = false; // a poll has failed, or has not been answered for long
    std::optional<dao::ErrorKind>
        failure; // of the poll, nothing: it has not been answered; or why the file is not used
    bool canBeWritten = true;
    QDateTime lastCurrent;        // when a poll was answered; invalid until then
    QStringList withKeptStatuses; // users whose new status is still to be written

    QString Text() const; // empty while all is well

private:
    QString TextOfFile() const;
};

// Why a configured file is not used, as the end of a sentence: "it is a folder".
QString WhyNotUsed(dao::ErrorKind failure);

// Why the file at `path` can be read, but not written, and what helps.
QString RefusedWriteText(const QString &path, const dao::Error &error);
