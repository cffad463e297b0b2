#pragma once

#include <QString>

// What became of a look at a file that may become the company database.
struct PathJudgement
{
    enum class Outcome {
        Found,
        Missing,           // there is no such file, or it can't be read
        NoCompanyDatabase, // a file of another kind, or a damaged one
        Locked,            // by another program
        NoAnswer           // its drive takes too long
    };
    Outcome outcome = Outcome::Missing;
    bool isOwnFile = false;     // the "Jobs.mdb" of the program folder, under any spelling
    bool canAutoUpdate = false; // a local copy of its job list may be kept
    qint64 people = 0;          // of one that was found
    qint64 jobs = 0;

    bool Exists() const { return outcome != Outcome::Missing && outcome != Outcome::NoAnswer; }
    QString Text() const; // one line for the person
};
