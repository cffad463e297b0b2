#pragma once

#include "board/Board.h"
#include "clock/Clock.h"
#include "clock/JobLists.h"
#include "clock/TimeTable.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "settings/Options.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "texts/TextState.h"

#include <optional>
#include <utility>

class System;
class TimeSource;

// One running copy of the program: the only state that its parts share. Several can live side by side in one process.
class Program
{
public:
    Program(const System &system, const TimeSource &time, CompanyLink::Mode mode);

    const System &system;
    const TimeSource &time;

    bool StartingUp = true;
    Identity identity;
    Options options;
    TextState texts;
    JobLists lists;
    JobDatabase jobDatabase;
    Board board;

    dao::Database LocalDB;         // the per-login database, held for the program's life
    dao::Recordset PersonalJobsRs; // its Projects, by JobID
    TimeTable timeTable;
    Clock clock;

    void FillPersonalList(); // from LocalDB
    // Opens the time database at `path`, which is made anew whenever it turns out to be missing or damaged. False when it can't
    // be read.
    bool OpenTimeTable(const QString &path);

    // Closes the time database, the job database and LocalDB, in that order, and renews the local copy of the job list if that
    // is to be done. The job database is waited for within one limit, whatever it is asked. False when it does not answer: its
    // thread is left behind then, and the process must end without waiting for it.
    bool CloseDatabases(); // again: says the same

private:
    void AddPersonalJob(const JobItem &job);
    TimeFile::Outcome MakeSureOfTimeDb(bool damaged);

    std::pair<qint64, QDateTime> damagedTimeDb_; // size and time of the file that was found damaged last
    QDateTime damagedSince_;                     // when it was first found so
    std::optional<bool> closed_;                 // what CloseDatabases said
};
