#pragma once

#include "platform/dao/Error.h"

#include <QString>

// The time rows that their file does not have yet, and how it is said.
struct UnsavedNotice
{
    int count = 0;
    QString timeFile; // names of files, without their folder
    QString trouble;  // why the time file does not take them
    bool isParked = false;
    QString parkedIn;    // the file that holds them meanwhile, or refuses to
    QString parkTrouble; // why it does

    QString Text() const; // for the line in the main window; empty when there are none
};

// Why a file can't be written, as the end of a sentence: "another program has locked it".
QString TroubleText(dao::ErrorKind kind);
